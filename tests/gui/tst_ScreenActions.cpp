#include "commands/CommandExecutor.h"
#include "commands/CommandTable.h"
#include "gui/control/FunctionController.h"
#include "gui/shell/ConsoleDialog.h"
#include "gui/shell/ConsoleLog.h"
#include "gui/shell/DriverCalibrationDialog.h"
#include "gui/shell/DriverCalibrationState.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/HelpDialog.h"
#include "gui/shell/LayoutsPanel.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/support/ScreenFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QImage>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>

using Command = NumberedCommand;
using OutputSpigot = Velmora::Types::OutputSpigot;

namespace {

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

/// What the screen says to a number; "done" when it has nothing to say.
QString execute(const ScreenFixture& screen, Command command)
{
    QString said;
    screen.window.commands().execute(command, [&said](const CommandOutcome& outcome) {
        said = outcome.isDone && outcome.text.isEmpty() ? text("done") : outcome.text;
    });
    return said;
}

QPushButton* button(const QWidget& panel, const char* label)
{
    const auto buttons = panel.findChildren<QPushButton*>();
    const auto found = std::find_if(buttons.begin(), buttons.end(),
                                    [label](const QPushButton* each) { return each->text() == text(label); });
    return found == buttons.end() ? nullptr : *found;
}

} // namespace

/// The numbered commands on the screen, and the dialogs that came with them.
class tst_ScreenActions : public WzTest {
    Q_OBJECT
private slots:
    void everyNumberOfTheClientDoesSomething()
    {
        const ScreenFixture screen;
        QStringList missing;
        for (int number = 0; number < kNumberedCommandCount; ++number) {
            const auto command = *CommandTable::fromNumber(number);
            const auto& entry = CommandTable::entry(command);
            // Windows are those of the catalogue, which is another one here.
            const bool isElsewhere = (command >= Command::OpenWaveform && command <= Command::OpenDiagnostics)
                || (command >= Command::SavePreset && command <= Command::LoadPreset10)
                || command == Command::OpenPresets;
            if (entry.place == CommandTable::Place::Client && !isElsewhere
                && screen.window.commands().whyNot(command) == text("This client cannot do it"))
                missing << text(entry.name);
        }
        QCOMPARE(missing, QStringList());
    }

    void layoutsComeAndGo()
    {
        const ScreenFixture screen;
        WzSubWindowManager& windows = screen.window.windows();
        QCOMPARE(execute(screen, Command::RestoreLayout), text("No layout was deleted"));
        QCOMPARE(execute(screen, Command::NewLayout), text("done"));
        QCOMPARE(windows.getNumberLayouts(), 2);
        QCOMPARE(windows.getCurrentWindowLayout(), 1);
        QCOMPARE(screen.windowCount(), 0U);
        QCOMPARE(execute(screen, Command::ShowLayout1), text("done"));
        QCOMPARE(screen.windowCount(), 2U);
        QCOMPARE(execute(screen, numbered(Command::ShowLayout1, 2)), text("There is no layout 3"));
        QCOMPARE(execute(screen, Command::DuplicateLayout), text("done"));
        QCOMPARE(windows.getNumberLayouts(), 3);
        QCOMPARE(execute(screen, Command::DeleteLayout), text("done"));
        QCOMPARE(windows.getNumberLayouts(), 2);
        QCOMPARE(execute(screen, Command::RestoreLayout), text("done"));
        QCOMPARE(windows.getNumberLayouts(), 3);
        QCOMPARE(execute(screen, Command::CloseLayoutWindows), text("done"));
        QCOMPARE(screen.windowCount(), 0U);
        for (int i = windows.getNumberLayouts(); i < LayoutList::kMaximumBySwiping; ++i)
            QCOMPARE(execute(screen, Command::NewLayout), text("done"));
        QCOMPARE(execute(screen, Command::NewLayout), text("There are 16 layouts already"));
    }

    void theLockHoldsForScripts_data()
    {
        QTest::addColumn<int>("number");
        for (const Command command :
             {Command::CloseLayoutWindows, Command::AskBeforeClosingWindows, Command::NewLayout,
              Command::DuplicateLayout, Command::DeleteLayout, Command::CloseWindow, Command::MoveWindow})
            QTest::newRow(CommandTable::entry(command).name) << numberOf(command);
    }
    void theLockHoldsForScripts()
    {
        QFETCH(int, number);
        const ScreenFixture screen;
        QCOMPARE(execute(screen, Command::LockLayouts), text("done"));
        QCOMPARE(execute(screen, Command::LockLayouts), text("done")); // whoever said so before
        QCOMPARE(execute(screen, *CommandTable::fromNumber(number)), text("The layouts are locked"));
        QCOMPARE(screen.windowCount(), 2U);
        QCOMPARE(screen.window.windows().getNumberLayouts(), 1);
        QCOMPARE(execute(screen, Command::UnlockLayouts), text("done"));
        QVERIFY(!screen.state.isLayoutLocked());
    }

    void theActiveWindowIsMeant()
    {
        const ScreenFixture screen;
        QCOMPARE(execute(screen, Command::ToggleFreeze), text("done"));
        QVERIFY(screen.active().isFrozen());
        QCOMPARE(execute(screen, Command::NextWindow), text("done"));
        QVERIFY(!screen.active().isFrozen());
        QCOMPARE(execute(screen, Command::ToggleFullScreen), text("done"));
        QVERIFY(screen.window.area().activeWzSubWindow()->isSubWindowFullScreen());
        QCOMPARE(execute(screen, Command::CloseWindow), text("done"));
        QTRY_COMPARE(screen.windowCount(), 1U);
        QCOMPARE(execute(screen, Command::CloseWindow), text("done"));
        QTRY_COMPARE(screen.windowCount(), 0U);
        for (const Command command : {Command::ToggleFreeze, Command::ToggleFullScreen, Command::CloseWindow,
                                      Command::MoveWindow, Command::OpenWindowMenu})
            QCOMPARE(execute(screen, command), text("No window is active"));
    }

    /// Whatever has no number is reached as at the panel.
    void thePanelsButtonsArePressed()
    {
        const ScreenFixture screen;
        QCOMPARE(execute(screen, Command::PressLogo), text("done"));
        QVERIFY(qobject_cast<MainMenu*>(screen.window.panels().openPanel()));
        execute(screen, Command::PressDown); // Layouts
        execute(screen, Command::PressOk);
        execute(screen, Command::PressRight);
        execute(screen, Command::PressUp);
        execute(screen, Command::PressOk); // Overview
        QVERIFY(qobject_cast<LayoutsPanel*>(screen.window.panels().openPanel()));
        execute(screen, Command::PressBack);
        QTRY_VERIFY(!screen.window.panels().openPanel());
        QCOMPARE(screen.labels().first(), text("Freeze"));
        QCOMPARE(execute(screen, Command::PressFunctionButton1), text("done"));
        QVERIFY(screen.active().isFrozen());
        execute(screen, Command::OpenHelp);
        QVERIFY(qobject_cast<HelpDialog*>(screen.window.panels().openPanel()));
        QCOMPARE(execute(screen, Command::PressFunctionButton10), text("Button 10 does nothing now"));
        QCOMPARE(execute(screen, Command::ClosePanel), text("done"));
        QVERIFY(!screen.window.panels().openPanel());
        QCOMPARE(execute(screen, Command::ClosePanel), text("done"));
        // A menu does not keep the keys from the panel that comes.
        execute(screen, Command::OpenWindowMenu);
        QVERIFY(QApplication::activePopupWidget());
        execute(screen, Command::OpenLayouts);
        QVERIFY(!QApplication::activePopupWidget());
        execute(screen, Command::ClosePanel);
    }

    void aScreenshotSaysWhereItIs()
    {
        QStandardPaths::setTestModeEnabled(true);
        const ScreenFixture screen;
        const QString path = execute(screen, Command::TakeScreenshot);
        QVERIFY2(!QImage(path).isNull(), qPrintable(path));
        QFile::remove(path);
    }

    void theConsoleKeepsWhatWasSaid()
    {
        const ScreenFixture screen;
        ConsoleLog& log = screen.window.panels().console();
        QSignalSpy entered(&log, &ConsoleLog::entered);
        execute(screen, Command::OpenConsole);
        const auto console = [&screen] {
            return qobject_cast<ConsoleDialog*>(screen.window.panels().openPanel());
        };
        QVERIFY(console());
        QVERIFY(console()->entry().hasFocus());
        QTest::keyClicks(&console()->entry(), text("execute 5"));
        screen.key(Qt::Key_Return);
        QTest::keyClicks(&console()->entry(), text("  "));
        screen.key(Qt::Key_Return); // is no command
        QCOMPARE(entered.size(), 1);
        QVERIFY(log.isBusy());
        // It is answered while nobody looks.
        execute(screen, Command::ClosePanel);
        log.addAnswerLine(text("Executing command 5\nand more\n"));
        log.endAnswer(true);
        QVERIFY(!log.isBusy());
        execute(screen, Command::OpenConsole);
        const auto* const output = console()->findChild<QPlainTextEdit*>();
        execute(screen, Command::UseLightTheme);
        QCOMPARE(output->palette().color(QPalette::Base), console()->entry().palette().color(QPalette::Base));
        execute(screen, Command::UseDarkTheme);
        QCOMPARE(output->toPlainText(), text("> execute 5\nExecuting command 5\nand more\nDone"));
        log.enter(text("execute 6"));
        // The knob goes through what was entered, and back to an empty line.
        for (const auto& [key, expected] :
             {std::pair(Qt::Key_PageUp, "execute 6"), std::pair(Qt::Key_PageUp, "execute 5"),
              std::pair(Qt::Key_PageUp, "execute 5"), std::pair(Qt::Key_PageDown, "execute 6"),
              std::pair(Qt::Key_PageDown, "")}) {
            screen.key(key);
            QCOMPARE(console()->entry().text(), text(expected));
        }
    }

    void theConsoleForgetsTheOldest()
    {
        ConsoleLog log;
        for (int i = 0; i < ConsoleLog::kMostLines + 10; ++i)
            log.addAnswerLine(QString::number(i));
        QCOMPARE(log.lines().size(), ConsoleLog::kMostLines);
        QCOMPARE(log.lines().first(), text("10"));
        for (int i = 0; i < ConsoleLog::kMostEntries + 10; ++i)
            log.enter(QString::number(i / 2));
        QVERIFY(log.entries().size() <= ConsoleLog::kMostEntries);
        QCOMPARE(log.entries().count(text("100")), 1);
    }

    void driversAreCalibratedOneAtATime()
    {
        ScreenFixture screen;
        screen.connection.noteConnected();
        DriverCalibrationState& state = screen.window.panels().driverCalibration();
        QSignalSpy started(&state, &DriverCalibrationState::startRequested);
        QSignalSpy cancelled(&state, &DriverCalibrationState::cancelRequested);
        execute(screen, Command::OpenDriverCalibration);
        const QWidget& dialog = *screen.window.panels().openPanel();
        QVERIFY(!button(dialog, "Cancel Calibration")->isEnabled());
        button(dialog, "Calibrate C")->click();
        QCOMPARE(started.value(0).value(0).value<OutputSpigot>(), OutputSpigot::C);
        // It runs when the procedure says so, also when a script has begun it.
        state.noteStarted(OutputSpigot::C);
        state.noteReading(OutputSpigot::C, 31.5, 790.04);
        QVERIFY(!button(dialog, "Calibrate A")->isEnabled());
        QCOMPARE(state.progress(), 0.5);
        QCOMPARE(state.reading(), text("Gain 31.5: 790.0 mV"));
        button(dialog, "Cancel Calibration")->click();
        QCOMPARE(cancelled.size(), 1);
        state.noteEnded(OutputSpigot::C, text("The calibration was cancelled"));
        QVERIFY(button(dialog, "Calibrate A")->isEnabled());
        QVERIFY(!button(dialog, "Cancel Calibration")->isEnabled());
        screen.connection.noteLost();
        QVERIFY(!button(dialog, "Calibrate A")->isEnabled());
    }
};

WZ_TEST_CLASS(tst_ScreenActions)
#include "tst_ScreenActions.moc"
