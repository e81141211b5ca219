#include "endtoend/Program.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTemporaryDir>

namespace {

constexpr int kScriptTimeMs = 60'000;

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

/// A folder that is a user's own: runtime folder, home and settings.
struct Home {
    Home()
    {
        environment.insert(text("XDG_RUNTIME_DIR"), folder.path());
        environment.insert(text("HOME"), folder.path());
        environment.insert(text("XDG_CONFIG_HOME"), folder.filePath(text("config")));
        environment.insert(text("XDG_DATA_HOME"), folder.filePath(text("data")));
        environment.insert(text("PATH"),
                           QCoreApplication::applicationDirPath() + QLatin1Char(':')
                               + environment.value(text("PATH")));
        environment.insert(text("WZ_CONSOLE"), socket());
    }
    QString socket() const { return folder.filePath(text("wz_displayclient.console")); }

    QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

struct Run {
    int exitCode = -1;
    QString output;
    QString errors;
};

Run run(const Home& home, const QString& program, const QStringList& arguments, const QByteArray& input = {})
{
    QProcess process;
    process.setProcessEnvironment(home.environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(kScriptTimeMs)) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Run console(const Home& home, const char* line, const QByteArray& input = {})
{
    return run(home, QCoreApplication::applicationDirPath() + text("/wz_console"),
               text(line).split(QLatin1Char(' '), Qt::SkipEmptyParts), input);
}

/// What the instrument has there.
QString valueOf(const Home& home, const QString& path)
{
    return run(home, QCoreApplication::applicationDirPath() + text("/wz_datacore"), {text("get"), path})
        .output;
}

std::unique_ptr<QProcess> startClient(const Home& home)
{
    auto client = std::make_unique<QProcess>();
    client->setProcessEnvironment(home.environment);
    client->setProcessChannelMode(QProcess::MergedChannels);
    client->start(QCoreApplication::applicationDirPath() + text("/wz_displayclient"),
                  {text("-Dwindowed=true")});
    return client;
}

std::unique_ptr<Program> startInstrumentAt(const Home& home)
{
    return startInstrument({text("--state-dir"), home.folder.filePath(text("instrument"))});
}

} // namespace

/// The programs as a script uses them.
class tst_Console : public WzTest {
    Q_OBJECT
private slots:
    void commandLines_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("says");
        const auto row = [](const char* arguments, int exitCode, const char* says) {
            QTest::newRow(arguments) << text(arguments) << exitCode << text(says);
        };
        row("--version", 0, "wz_console " WZ_VERSION "\n");
        row("--help", 0, "--socket PATH");
        row("help", 0, "executeExecutes a command code\n");
        row("help", 0, "  0  take-screenshot");
        row("--sokcet x", 2, "wz_console: Unknown option 'sokcet'. (see --help)\n");
        row("--timeout soon execute 1", 2, "wz_console: 'soon' is no number for --timeout");
        row("--socket /none --timeout 1 execute 1", 1, "wz_console: no display client at /none\n");
    }
    void commandLines()
    {
        QFETCH(QString, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, says);
        const Home home;
        const Run result = console(home, arguments.toLatin1().constData());
        QCOMPARE(result.exitCode, exitCode);
        const QString& said = exitCode == 0 ? result.output : result.errors;
        QVERIFY2(said.contains(says), qPrintable(said));
    }

    /// The examples of the documentation, from a cold start: client and instrument come when they like.
    void examplesWork_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("level");
        QTest::newRow("shell") << text("check-level.sh") << text("-20");
        QTest::newRow("Python") << text("check_level.py") << text("-9");
    }
    void examplesWork()
    {
        QFETCH(QString, script);
        QFETCH(QString, level);
        const Home home;
        const auto client = startClient(home);
        QProcess example;
        example.setProcessEnvironment(home.environment);
        example.start(text(WZ_DOCS "/examples/") + script, {level});
        QTest::qWait(500);
        const auto instrument = startInstrumentAt(home);
        QVERIFY(instrument);
        QVERIFY(example.waitForFinished(kScriptTimeMs));
        const QString output = QString::fromUtf8(example.readAllStandardOutput());
        QVERIFY2(example.exitCode() == 0,
                 qPrintable(output + QString::fromUtf8(example.readAllStandardError())));
        const QStringList lines = output.split(QLatin1Char('\n'));
        QCOMPARE(QImage(lines.value(0)).size().isEmpty(), false);
        QCOMPARE(lines.value(1), text("wanted %1 dBFS, shown %1 dBFS").arg(level));
        client->terminate();
        QVERIFY(client->waitForFinished(kStartTimeMs));
        QCOMPARE(client->exitCode(), 0);
    }

    /// What cannot be right is not called right.
    void anExampleFailsWhereItShould()
    {
        const Home home;
        const auto client = startClient(home);
        const auto instrument = startInstrumentAt(home);
        QVERIFY(instrument);
        // Beyond what the generator can: it keeps its level.
        const Run result = run(home, text(WZ_DOCS "/examples/check_level.py"), {text("40")});
        QCOMPARE(result.exitCode, 1);
    }

    void aSession()
    {
        const Home home;
        const auto client = startClient(home);
        // The client is there, the instrument is not.
        Run result = console(home, "--timeout 20 get_sfp_logs");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.output,
                 text("Requesting SFP logs\nLogs requested\nNot connected to the instrument\n"));
        auto instrument = startInstrumentAt(home);
        QVERIFY(instrument);
        QTRY_VERIFY_WITH_TIMEOUT(console(home, "execute reset-peak-hold").exitCode == 0, kStartTimeMs);

        // Both measure what was chosen by its number; the log comes back.
        result = console(home, "",
                         "execute 65\nset_velmeth0_ip 10.9.8.7 24 10.9.8.1 0.0.0.0 0.0.0.0\n"
                         "get_ip_interfaces_logs\n");
        QVERIFY2(result.exitCode == 0, qPrintable(result.output));
        QCOMPARE(valueOf(home, text("configCoreRouter/signalSource/name")), text("tone\n"));
        // One of three is not done; the others are.
        result = console(home, "", "execute 23\nexecute 47\nexecute 23\n");
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.output,
                 text("Executing command 23\nExecuting command 47\nThis number is reserved\n"
                      "Executing command 23\n"));

        // A calibration outlives the instrument.
        result = console(home, "calibrate_driver_b");
        QVERIFY2(result.exitCode == 0, qPrintable(result.output + result.errors));
        const QString gain = text("persistentConfigCoreRouter/sdiDriverB/gain");
        const QString found = valueOf(home, gain);
        instrument->signal(SIGTERM);
        QCOMPARE(instrument->exitCode(), 0);
        instrument = startInstrumentAt(home);
        QVERIFY(instrument);
        QCOMPARE(valueOf(home, gain), found);
        QVERIFY(result.output.contains(text("Gain ") + found.trimmed()));

        // The last command is answered, too.
        result = console(home, "execute quit");
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.output, text("Executing command 39\n"));
        QVERIFY(client->waitForFinished(kStartTimeMs));
        QCOMPARE(client->exitCode(), 0);
        QVERIFY(!QFile::exists(home.socket()));
    }

    void aSecondClientLeavesTheFirstItsConsole()
    {
        const Home home;
        auto first = startClient(home);
        QCOMPARE(console(home, "--timeout 20 execute 15").exitCode, 0);
        auto second = startClient(home);
        QVERIFY(QTest::qWaitFor(
            [&, output = QByteArray()]() mutable {
                output += second->readAll();
                return output.contains("another client has it");
            },
            kStartTimeMs));
        QCOMPARE(console(home, "execute 15").exitCode, 0);
        second->terminate();
        QVERIFY(second->waitForFinished(kStartTimeMs));
        // One that is killed leaves its socket, which the next one takes.
        first->kill();
        QVERIFY(first->waitForFinished(kStartTimeMs));
        QCOMPARE(console(home, "--timeout 1 execute 15").exitCode, 1);
        const auto third = startClient(home);
        QCOMPARE(console(home, "--timeout 20 execute 15").exitCode, 0);
        third->terminate();
        QVERIFY(third->waitForFinished(kStartTimeMs));
    }
};

WZ_TEST_CLASS(tst_Console)
#include "tst_Console.moc"
