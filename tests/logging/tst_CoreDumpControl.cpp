#include "logging/CrashChild.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <sys/resource.h>
#include <unistd.h>

class tst_CoreDumpControl : public WzTest {
    Q_OBJECT

private slots:
    void liftsTheLimitsIfTheFlagIsThere_data()
    {
        QTest::addColumn<bool>("flag");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("error");
        const auto nobody = QStringLiteral("--nobody");
        const auto lifted = QStringLiteral("soft unlimited hard unlimited\n");
        QTest::newRow("no flag") << false << QStringList() << "soft 0 hard unlimited\n"
                                 << "";
        QTest::newRow("flag") << true << QStringList() << lifted
                              << "Core dumps are enabled, the size of core files is not limited\n";
        QTest::newRow("flag, log running")
            << true << QStringList(QStringLiteral("--log"))
            << QLatin1String("[I]> Core dumps are enabled, the size of core files is not limited\n") + lifted
            << "";
        QTest::newRow("no flag, hard limit") << false << QStringList(nobody) << "soft 0 hard 0\n"
                                             << "";
        QTest::newRow("flag, hard limit")
            << true << QStringList(nobody) << "soft 0 hard 0\n"
            << "Core dumps cannot be enabled, the size limit of core files stays: Operation not permitted\n";
    }
    void liftsTheLimitsIfTheFlagIsThere()
    {
        QFETCH(bool, flag);
        QFETCH(QStringList, options);
        rlimit limit{};
        ::getrlimit(RLIMIT_CORE, &limit);
        if (::geteuid() != 0 && limit.rlim_max != RLIM_INFINITY)
            QSKIP("needs an unlimited hard limit of the core file size, or root's rights to lift it");

        const PrivateRoot root;
        QVERIFY(root.addFolder("/home/debug_feature_flags"));
        QVERIFY(!flag || root.addFile("/home/debug_feature_flags/ENABLE_CORE_DUMPS"));
        CrashChild child(root, options + QStringList(QStringLiteral("start")));
        QVERIFY(child.finish());
        if (!child.wasPermitted())
            QSKIP("the system does not permit a private root, where the flag file could stand");
        QCOMPARE(child.signal(), 0);
        QCOMPARE(child.exitCode(), 0);
        QTEST(child.standardError(), "error");
        QFETCH(QString, output);
        QVERIFY2(child.standardOutput().endsWith(output), qPrintable(child.standardOutput()));
    }
};

WZ_TEST_CLASS(tst_CoreDumpControl)
#include "tst_CoreDumpControl.moc"
