#include "app/core/MappedProgramArgs.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <sstream>

class tst_MappedProgramArgs : public WzTest {
    Q_OBJECT

private slots:
    void takesKeysAndValues()
    {
        log().expectError(QStringLiteral("Command line argument contained multiple '='!"));
        const char* const argv[] = {
            "-Dname=of-the-program", "-Dkey=value", "-Da=b=c", "-Dempty=", "-Dbare", "other", "--Dx=y",
            "-Dkey=second"};
        const MappedProgramArgs arguments(std::size(argv), argv, true);
        QCOMPARE(arguments.keys(),
                 (QStringList{QStringLiteral("bare"), QStringLiteral("empty"), QStringLiteral("key")}));
        QCOMPARE(arguments.getValuesForKey(QStringLiteral("key")),
                 (QStringList{QStringLiteral("value"), QStringLiteral("second")}));
        QCOMPARE(arguments.getValueForKey(QStringLiteral("key")), QStringLiteral("second"));
        QVERIFY(arguments.contains(QStringLiteral("bare")));
        QVERIFY(!arguments.contains(QStringLiteral("a")));
        QCOMPARE(arguments.getValueForKey(QStringLiteral("a")), QString());
        QCOMPARE(log().count(QStringLiteral("multiple '='")), 1);

        std::ostringstream text;
        text << arguments;
        QCOMPARE(text.str(), std::string("bare=\nempty=\nkey=value\nkey=second\n"));
        QVERIFY(MappedProgramArgs(1, argv, false).contains(QStringLiteral("name")));
    }
};

WZ_TEST_CLASS(tst_MappedProgramArgs)
#include "tst_MappedProgramArgs.moc"
