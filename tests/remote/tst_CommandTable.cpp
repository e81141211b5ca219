#include "commands/CommandExecutor.h"
#include "commands/CommandTable.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "network/NetworkConnection.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

using Command = NumberedCommand;
using CommandTable::Place;

class tst_CommandTable : public WzTest {
    Q_OBJECT
private slots:
    /// Scripts know the numbers: they stay.
    void numbersStandForWhatTheySay_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        const auto row = [](Command command, const char* name) {
            QTest::newRow(name) << numberOf(command) << QString::fromLatin1(name);
        };
        row(Command::TakeScreenshot, "take-screenshot");
        row(Command::CloseLayoutWindows, "close-layout-windows");
        row(Command::ShowLayout1, "show-layout-1");
        row(Command::ShowLayout5, "show-layout-5");
        row(Command::LockLayouts, "lock-layouts");
        row(Command::ToggleFullScreen, "toggle-full-screen");
        row(Command::ToggleMainMenu, "toggle-main-menu");
        row(Command::OpenPowerOff, "open-power-off");
        row(Command::Quit, "quit");
        row(Command::OpenWaveform, "open-waveform");
        row(Command::OpenDiagnostics, "open-diagnostics");
        row(Command::Reserved47, "reserved-47");
        row(Command::RequestSdiInputRateLogs, "request-input-rate-logs");
        row(Command::RequestScte104Logs, "request-scte104-logs");
        row(Command::ResetEventLog, "reset-event-log");
        row(Command::AnalyseSdi, "analyse-sdi");
        row(Command::SelectSource1, "select-source-1");
        row(Command::SelectSource11, "select-source-11");
        row(Command::SavePreset, "save-preset");
        row(Command::LoadPreset10, "load-preset-10");
        row(Command::PressFunctionButton1, "press-function-button-1");
        row(Command::PressFunctionButton10, "press-function-button-10");
        row(Command::PressUp, "press-up");
        row(Command::TurnKnobAnticlockwise, "turn-knob-anticlockwise");
    }
    void numbersStandForWhatTheySay()
    {
        QFETCH(int, number);
        QFETCH(QString, name);
        QCOMPARE(CommandTable::fromName(name), CommandTable::fromNumber(number));
    }

    void namesDiffer()
    {
        QSet<QString> names;
        for (const auto& entry : CommandTable::entries())
            names.insert(QString::fromLatin1(entry.name));
        QCOMPARE(names.size(), 106);
        QVERIFY(!CommandTable::fromNumber(106));
        QVERIFY(!CommandTable::fromNumber(-1));
        QVERIFY(!CommandTable::fromName(QStringLiteral("nothing")));
    }

    void thePageListsThem()
    {
        QFile page(QStringLiteral(WZ_DOCS "/remote-control.md"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(page.readAll());
        QStringList missing;
        for (int number = 0; number < kNumberedCommandCount; ++number) {
            const auto& entry = CommandTable::entries().at(static_cast<std::size_t>(number));
            const QString row = QStringLiteral("| %1 | `%2` | %3 |")
                                    .arg(QString::number(number), QString::fromLatin1(entry.name),
                                         QString::fromLatin1(entry.text));
            if (!text.contains(row))
                missing << row;
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
        QCOMPARE(text.count(QRegularExpression(QStringLiteral("^\\| \\d+ \\| `"),
                                               QRegularExpression::MultilineOption)),
                 kNumberedCommandCount);
    }

    void theExecutorSaysWhyNot()
    {
        NetworkConnection connection(nullptr, false);
        ClientDatacoreRegistry registry(connection);
        CommandExecutor executor(registry);
        QList<CommandOutcome> outcomes;
        const auto done = [&outcomes](const CommandOutcome& outcome) { outcomes << outcome; };
        int runs = 0;
        QString reason = QStringLiteral("Locked");
        executor.setAction(
            Command::Quit, [&runs] { ++runs; }, [&reason] { return reason; });
        executor.execute(Command::Quit, done);
        reason.clear();
        executor.execute(Command::Quit, done);
        executor.execute(Command::Reserved47, done);
        executor.execute(Command::OpenHelp, done);
        executor.execute(Command::RequestSfpLogs, done);
        QCOMPARE(runs, 1);
        QStringList texts;
        for (const CommandOutcome& outcome : std::as_const(outcomes))
            texts << (outcome.isDone ? QStringLiteral("done") : outcome.text);
        QCOMPARE(texts,
                 QStringList({QStringLiteral("Locked"), QStringLiteral("done"),
                              QStringLiteral("This number is reserved"),
                              QStringLiteral("This client cannot do it"),
                              QStringLiteral("Not connected to the instrument")}));
    }
};

WZ_TEST_CLASS(tst_CommandTable)
#include "tst_CommandTable.moc"
