#include "tools/SettingsFile.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

QByteArray fileWith(const QByteArray& elements)
{
    return "{\"format\":\"wz_datacore settings\",\"version\":1,\"elements\":" + elements + "}";
}

} // namespace

class tst_SettingsFile : public WzTest {
    Q_OBJECT

private slots:
    void valuesComeBackAsTheyWere()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings"));
        const SettingsFile::Settings settings{
            {QStringLiteral("configCoreRouter/none"), {}},
            {QStringLiteral("configCoreRouter/empty"), {QString()}},
            {QStringLiteral("configCoreRouter/one"), {QStringLiteral("\"\\\n\u00fc\u2028")}},
            {QStringLiteral("configCoreRouter/many"), {QString(), QStringLiteral("null"), QString()}}};
        QVERIFY(!SettingsFile::save(file, {}));
        QVERIFY(!SettingsFile::save(file, settings)); // over the first
        QString problem;
        const auto loaded = SettingsFile::load(file, problem);
        QVERIFY2(loaded, qPrintable(problem));
        QVERIFY(*loaded == settings);
    }

    void damagedFiles_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("says");
        const auto row = [](const char* name, const QByteArray& json, const char* says) {
            QTest::newRow(name) << json << QString::fromLatin1(says);
        };
        row("empty", "", "at byte 0");
        row("torn", fileWith("{\"a\":\"b\"}").left(60), "at byte");
        row("array", "[]", "it has no \"format\"");
        row("other format", "{\"format\":\"x\",\"version\":1,\"elements\":{}}", "it has no \"format\"");
        row("no elements", fileWith("[]"), "with \"elements\"");
        row("later version", fileWith("{}").replace(":1,", ":2,"), "its version is not 1");
        row("number", fileWith("{\"a/b\":1}"), "the value of a/b is no string and no list of them");
        row("boolean", fileWith("{\"a\":true}"), "the value of a is");
        row("object", fileWith("{\"a\":{}}"), "the value of a is");
        row("list with null", fileWith("{\"a\":[\"x\",null]}"), "the value of a is");
        row("nested too deep", QByteArray(5000, '['), "at byte");
    }
    void damagedFiles()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, says);
        QString problem;
        QVERIFY(!SettingsFile::fromJson(json, problem));
        QVERIFY2(problem.contains(says), qPrintable(problem));
    }

    void placesThatCannotBeWritten()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString missing = folder.filePath(QStringLiteral("none/settings"));
        for (const QString& file : {folder.path(), missing, pipe}) {
            const auto problem = SettingsFile::save(file, {});
            QVERIFY2(problem && problem->startsWith(QStringLiteral("cannot write ") + file),
                     qPrintable(file));
        }
        // The pipe is still there: a device would be, too.
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(pipe).constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
    }

    void endlessFileIsRefused()
    {
        QString problem;
        QVERIFY(!SettingsFile::load(QStringLiteral("/dev/zero"), problem));
        QVERIFY2(problem.contains(QStringLiteral("too large")), qPrintable(problem));
    }

    void settingsAreInThreeTrees()
    {
        for (const char* path :
             {"configCoreRouter/a", "nonPersistentConfigCoreRouter/a/b", "persistentConfigCoreRouter"})
            QVERIFY2(SettingsFile::isSetting(QString::fromLatin1(path)), path);
        for (const char* path :
             {"", "/configCoreRouter/a", "configCoreRouterX/a", "statusCoreRouter/a", "commandCoreRouter/a"})
            QVERIFY2(!SettingsFile::isSetting(QString::fromLatin1(path)), path);
    }
};

WZ_TEST_CLASS(tst_SettingsFile)
#include "tst_SettingsFile.moc"
