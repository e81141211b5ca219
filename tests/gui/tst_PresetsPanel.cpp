#include "gui/control/FunctionController.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/ConfirmationStrip.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/PresetImportPanel.h"
#include "gui/shell/PresetList.h"
#include "gui/shell/PresetsPanel.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/shell/UndoStep.h"
#include "gui/support/ScreenFixture.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "presets/PresetFile.h"
#include "presets/PresetHelper.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDir>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <functional>

using Answer = WzClientPresetManager::Answer;
using Act = std::function<void(PresetRequests&)>;
Q_DECLARE_METATYPE(Act)

namespace {

QString text(const char* characters)
{
    return QString::fromUtf8(characters);
}

QStringList names(const char* list)
{
    return text(list).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

/// A screen with an instrument that keeps presets, of which the test says what it answers.
struct PresetScreen : ScreenFixture {
    PresetScreen()
    {
        helper.setOrderFolder(folder.path());
        connection.setAddress(text("127.0.0.1"));
        connection.noteConnected();
        connection.setProgress(1, 1);
        requests().follow(helper);
        for (const auto& signal :
             {&PresetRequests::createWanted, &PresetRequests::overwriteWanted, &PresetRequests::loadWanted,
              &PresetRequests::deleteWanted, &PresetRequests::fetchWanted})
            QObject::connect(&requests(), signal, &helper, [this](const QString& name) { asked << name; });
        QObject::connect(
            &requests(), &PresetRequests::renameWanted, &helper,
            [this](const QString& name, const QString& newName) { asked << name + text(">") + newName; });
        QObject::connect(&requests(), &PresetRequests::storeWanted, &helper,
                         [this](const QString& name, const WzClientPreset& preset) {
                             asked << name;
                             stored = preset;
                         });
    }
    PresetRequests& requests() const { return window.panels().presets(); }
    PresetsPanel* panel() const { return qobject_cast<PresetsPanel*>(window.panels().openPanel()); }
    PresetList& list() const { return panel()->list(); }
    QStringList rows() const
    {
        QStringList rows;
        for (const PresetList::Row& row : list().rows())
            rows << row.name;
        return rows;
    }
    /// The instrument tells what it keeps, and when each was saved.
    void tell(const QStringList& kept, qint64 savedMs = 0)
    {
        std::deque<PresetInventory::PresetInventoryItem> items;
        for (const QString& name : kept)
            items.push_back({name, savedMs});
        PresetInventory inventory;
        inventory.setPresetInventory(items);
        distributor.acceptPacket(inventory);
    }
    void tell(const char* kept, qint64 savedMs = 0) { tell(names(kept), savedMs); }
    QString lastAsked() const { return asked.isEmpty() ? QString() : asked.last(); }

    QTemporaryDir folder;
    SerialisableDataPacketDistributor distributor;
    PresetHelper helper{distributor};
    QStringList asked;
    WzClientPreset stored;
};

void drag(PresetList& list, const QPoint& from, const QPoint& to, bool drops = true)
{
    QWidget* const area = list.viewport();
    QTest::mousePress(area, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 10; ++step) {
        const QPoint at = from + (to - from) * step / 10;
        QMouseEvent move(QEvent::MouseMove, at, area->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(area, &move);
    }
    if (drops)
        QTest::mouseRelease(area, Qt::LeftButton, Qt::NoModifier, to);
}

QPoint gripOf(const PresetList& list, int row)
{
    const QRect area = list.rowRect(row);
    return {area.right() - PresetList::kGripWidth / 2, area.center().y()};
}

} // namespace

/// What the user does with presets, and what the instrument makes of it.
class tst_PresetsPanel : public WzTest {
    Q_OBJECT
private slots:
    void init()
    {
        WzTest::init();
        m_home.emplace();
        qputenv("HOME", m_home->path().toLocal8Bit()); // where documents go
    }

    void requestsAreAnswered_data()
    {
        QTest::addColumn<Act>("act");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<QString>("refusal");
        QTest::addColumn<QString>("others"); ///< an inventory of what another client did meanwhile
        QTest::addColumn<QString>("success");
        QTest::newRow("save") << Act([](PresetRequests& r) { r.save(text("X")); }) << "X"
                              << "A,B"
                              << "A,B,C"
                              << "A,B,X";
        QTest::newRow("rename") << Act([](PresetRequests& r) { r.rename(text("A"), text("X")); }) << "A>X"
                                << "A,B"
                                << "A"
                                << "B,X";
        QTest::newRow("delete") << Act([](PresetRequests& r) { r.remove(text("A")); }) << "A"
                                << "A,B"
                                << "A,B,C"
                                << "B";
    }
    void requestsAreAnswered()
    {
        QFETCH(Act, act);
        QFETCH(QString, asked);
        QFETCH(QString, others);
        QFETCH(QString, success);
        QFETCH(QString, refusal);
        QList<bool> ended;
        PresetScreen screen;
        screen.tell("A,B");
        connect(&screen.requests(), &PresetRequests::ended, this,
                [&ended](PresetRequests::Kind, bool succeeded) { ended << succeeded; });
        for (const bool succeeds : {false, true}) {
            act(screen.requests());
            QCOMPARE(screen.lastAsked(), asked);
            QVERIFY(screen.requests().isBusy());
            // Nothing else can be asked for meanwhile.
            screen.requests().load(text("B"));
            QCOMPARE(screen.lastAsked(), asked);
            if (succeeds) {
                screen.tell(others.toUtf8().constData());
                QVERIFY(screen.requests().isBusy());
            }
            screen.tell((succeeds ? success : refusal).toUtf8().constData());
            QVERIFY(!screen.requests().isBusy());
            QCOMPARE(screen.requests().hasFailed(), !succeeds);
            QCOMPARE(ended.last(), succeeds);
        }
    }

    void overwritingIsSeenByTheTime()
    {
        PresetScreen screen;
        screen.tell("A", 1000);
        screen.requests().overwrite(text("A"));
        screen.tell("A", 1000);
        QVERIFY(screen.requests().hasFailed());
        screen.requests().overwrite(text("A"));
        screen.tell("A", 2000);
        QVERIFY(!screen.requests().hasFailed() && !screen.requests().isBusy());
        // An instrument that tells no times is believed.
        screen.tell("A");
        screen.requests().overwrite(text("A"));
        screen.tell("A");
        QVERIFY(!screen.requests().hasFailed() && !screen.requests().isBusy());
    }

    void silenceAndLossAreTold()
    {
        PresetScreen screen;
        screen.tell("A");
        screen.requests().setAnswerTimeout(20);
        screen.requests().save(text("X"));
        QTRY_VERIFY(screen.requests().hasFailed());
        screen.requests().setAnswerTimeout(5000);
        screen.requests().load(text("A"));
        screen.requests().onAnswered(text("A"), Answer::NoSuchPreset);
        QVERIFY(screen.requests().hasFailed());
        screen.requests().load(text("A"));
        QVERIFY(!screen.requests().hasFailed());
        screen.connection.noteLost();
        QVERIFY(screen.requests().hasFailed());
        QVERIFY(!screen.requests().isBusy());
        // Without a connection nothing is asked, and nothing listed that may not be there any more.
        screen.asked.clear();
        screen.requests().save(text("X"));
        QVERIFY(screen.asked.isEmpty());
        QVERIFY(screen.requests().names().isEmpty());
    }

    void someNamesCannotBe_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isPossible");
        QTest::newRow("plain") << "A/B \"C\" %1" << true;
        QTest::newRow("case") << "a" << true;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("blank") << "  " << false;
        QTest::newRow("the program's own") << "lastKnownState" << false;
    }
    void someNamesCannotBe()
    {
        QFETCH(QString, name);
        QFETCH(bool, isPossible);
        PresetScreen screen;
        screen.tell("A");
        screen.requests().save(name);
        QCOMPARE(screen.asked.contains(name), isPossible);
        if (isPossible)
            QVERIFY(screen.requests().text().contains(name));
        QCOMPARE(screen.requests().hasFailed(), !isPossible);
    }

    void savingByKeys()
    {
        PresetScreen screen;
        screen.tell("A,B");
        QTest::keyClick(&screen.window, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(screen.panel());
        QTest::keyClicks(QApplication::focusWidget(), text("Studio"));
        screen.key(Qt::Key_Return);
        QCOMPARE(screen.lastAsked(), text("Studio"));
        screen.tell("A,B,Studio");
        QCOMPARE(screen.list().selected(), text("Studio"));
        QCOMPARE(screen.requests().current(), text("Studio"));
        // The same name again asks before it destroys; the safe answer has the focus.
        screen.asked.clear();
        screen.press("Save New");
        screen.key(Qt::Key_Return);
        QVERIFY(screen.panel()->findChild<ConfirmationStrip*>());
        screen.key(Qt::Key_Return);
        QVERIFY(screen.asked.isEmpty());
        screen.press("Save New");
        screen.key(Qt::Key_Return, Qt::Key_Right, Qt::Key_Return);
        QCOMPARE(screen.asked, QStringList{text("Studio")});
    }

    void theWholePanelByKeys()
    {
        PresetScreen screen;
        screen.tell("A,B,C");
        screen.window.panels().openPresets();
        QCOMPARE(screen.rows(), names("A,B,C"));
        // Arrows and knob are the list's own at once.
        screen.key(Qt::Key_Down, Qt::Key_PageDown);
        QTRY_VERIFY(!screen.list().selected().isEmpty());
        screen.list().select(text("B"));
        screen.press("Down");
        QCOMPARE(screen.rows(), names("A,C,B"));
        screen.press("Up");
        screen.press("Up");
        QCOMPARE(screen.rows(), names("B,A,C"));
        QTest::keyClick(&screen.list(), Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(screen.rows(), names("A,B,C"));
        screen.press("Load");
        QCOMPARE(screen.lastAsked(), text("B"));
        QVERIFY(!screen.labels().contains(text("Delete")));
        screen.requests().onAnswered(text("B"), Answer::Came);
        QCOMPARE(screen.list().rows()[1].mark, text("loaded"));
        screen.press("Rename");
        QTest::keyClicks(QApplication::focusWidget(), text("Z"));
        screen.key(Qt::Key_Return);
        QCOMPARE(screen.lastAsked(), text("B>Z"));
        screen.tell("A,C,Z");
        QCOMPARE(screen.rows(), names("A,Z,C"));
        QCOMPARE(screen.list().selected(), text("Z"));
        QCOMPARE(screen.list().rows()[1].mark, text("loaded"));
        screen.asked.clear();
        screen.press("Delete");
        screen.key(Qt::Key_Return);
        QVERIFY(screen.asked.isEmpty());
        screen.press("Delete");
        screen.key(Qt::Key_Right, Qt::Key_Return);
        QCOMPARE(screen.asked, names("Z"));
        screen.tell("A,C");
        QCOMPARE(screen.list().selected(), text("C"));
    }

    void rowsAreDraggedByTheirGrip()
    {
        PresetScreen screen;
        screen.tell("A,B,C,D");
        screen.window.panels().openPresets();
        PresetList& list = screen.list();
        drag(list, gripOf(list, 0), gripOf(list, 2) + QPoint(0, 10));
        QCOMPARE(screen.rows(), names("B,C,A,D"));
        drag(list, gripOf(list, 3), gripOf(list, 0) - QPoint(0, 20));
        QCOMPARE(screen.rows(), names("D,B,C,A"));
        QCOMPARE(screen.helper.getPresetList(), names("D,B,C,A"));
        // Dragged back, taken back by Escape, or dragged elsewhere than at the grip: nothing.
        drag(list, gripOf(list, 1), gripOf(list, 1) + QPoint(0, 20));
        QCOMPARE(screen.rows(), names("D,B,C,A"));
        drag(list, gripOf(list, 0), gripOf(list, 2), false);
        QTest::keyClick(&list, Qt::Key_Escape);
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, Qt::NoModifier, gripOf(list, 2));
        QCOMPARE(screen.rows(), names("D,B,C,A"));
        drag(list, list.rowRect(0).center(), list.rowRect(2).center());
        QCOMPARE(screen.rows(), names("D,B,C,A"));
        // An inventory in the middle of a drag ends it.
        drag(list, gripOf(list, 0), gripOf(list, 2), false);
        screen.tell("A");
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, Qt::NoModifier, gripOf(list, 0));
        QCOMPARE(screen.rows(), names("A"));
    }

    void aTapSelectsAndAnotherOneLoads()
    {
        PresetScreen screen;
        screen.tell("A,B");
        screen.window.panels().openPresets();
        PresetList& list = screen.list();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.rowRect(1).center());
        QCOMPARE(list.selected(), text("B"));
        QVERIFY(screen.asked.isEmpty());
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.rowRect(1).center());
        QCOMPARE(screen.asked, names("B"));
    }

    void thousandsAreListed()
    {
        QStringList many;
        for (int i = 0; i < 3000; ++i)
            many << QStringLiteral("Preset %1").arg(i);
        many << QString(100000, QLatin1Char('x')) << text("a\nb") << text("<b>bold</b>") << text(" ");
        PresetScreen screen;
        screen.tell(many);
        screen.window.panels().openPresets();
        QCOMPARE(screen.rows().size(), 3004);
        PresetList& list = screen.list();
        QTest::keyClick(&list, Qt::Key_End);
        QCOMPARE(list.selected(), text(" "));
        QVERIFY(list.viewport()->rect().contains(list.rowRect(3003).center()));
        (void)list.grab(); // painting the odd names
        // Typing finds a name.
        QTest::keyClicks(&list, text("preset 29"));
        QCOMPARE(list.selected(), text("Preset 29"));
        QVERIFY(list.viewport()->rect().contains(list.rowRect(29).center()));
    }

    void theConnectionGoesAndComes()
    {
        PresetScreen screen;
        screen.tell("A,B");
        screen.window.panels().openPresets();
        screen.connection.noteLost();
        QVERIFY(screen.rows().isEmpty());
        QVERIFY(!screen.labels().contains(text("Load")));
        screen.press("Layouts");
        screen.window.panels().openPresets();
        screen.connection.noteConnected();
        screen.tell("B,C");
        QCOMPARE(screen.rows(), names("B,C"));
    }

    void filesGoAndCome()
    {
        PresetScreen screen;
        screen.tell("A/B");
        WzClientPreset preset;
        preset.setPresetName(text("A/B"));
        WzFavouriteShortcutsPreset section;
        preset.setFavouriteShortcutsPresets(section);
        for (int i = 0; i < 2; ++i) {
            screen.requests().exportToFile(text("A/B"));
            screen.requests().onPresetFetched(preset);
            QVERIFY2(!screen.requests().hasFailed(), qPrintable(screen.requests().text()));
        }
        const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
        const QStringList files = documents.entryList({text("*.wzpreset")}, QDir::Files);
        QCOMPARE(files, (QStringList{text("A_B (2).wzpreset"), text("A_B.wzpreset")}));
        screen.window.panels().openPresetImport();
        auto* const import = qobject_cast<PresetImportPanel*>(screen.window.panels().openPanel());
        QCOMPARE(import->list().rows().size(), std::size_t(2));
        screen.press("Import");
        QCOMPARE(screen.lastAsked(), text("A/B (2)"));
        QVERIFY(screen.stored.containsFavouriteShortcutsPresets());
        screen.tell("A/B,A/B (2)");
        QVERIFY(!screen.requests().hasFailed());
        // What is none is refused, and left as it is.
        QFile bad(documents.filePath(text("bad.wzpreset")));
        QVERIFY(bad.open(QIODevice::WriteOnly) && bad.write("{\"Class\":\"Other\"}") > 0);
        bad.close();
        screen.asked.clear();
        screen.requests().importFrom(bad.fileName());
        QVERIFY(screen.requests().hasFailed());
        screen.requests().importFrom(text("/nowhere"));
        QVERIFY(screen.asked.isEmpty());
        QVERIFY(bad.exists());
    }

    void theyAreInTheMenuAndAmongFavourites()
    {
        PresetScreen screen;
        QStringList many;
        for (int i = 0; i < 30; ++i)
            many << QStringLiteral("P%1").arg(i, 2, 10, QLatin1Char('0'));
        screen.tell(many);
        ScreenPanels& panels = screen.window.panels();
        const Favourite pinned{Favourite::Kind::Preset, text("P07"), {}, {}};
        panels.favourites().pin(pinned);
        panels.favourites().pin({Favourite::Kind::Preset, text("gone"), {}, {}});
        panels.toggleMainMenu();
        auto* const menu = qobject_cast<MainMenu*>(panels.openPanel());
        QVERIFY(!menu->row(text("gone"))->isEnabled());
        menu->showSection(MainMenu::Section::Presets);
        QVERIFY(menu->row(text("P19")) && !menu->row(text("P20")) && menu->row(text("All 30 presets")));
        menu->row(text("P07"))->click();
        QCOMPARE(screen.lastAsked(), text("P07"));
        QVERIFY(!panels.openPanel());
        screen.requests().onAnswered(text("P07"), Answer::Came);
        screen.connection.noteLost();
        QVERIFY(!panels.describe(pinned).whyNot.isEmpty());
        // A preset that is renamed stays pinned.
        panels.favourites().noteRenamed(Favourite::Kind::Preset, text("P07"), text("Q"));
        QCOMPARE(panels.favourites().all().front().name, text("Q"));
    }

    void aDeletedLayoutComesBack_data()
    {
        QTest::addColumn<int>("layouts");
        QTest::newRow("one of three") << 3;
        QTest::newRow("the only one") << 1;
    }
    void aDeletedLayoutComesBack()
    {
        QFETCH(int, layouts);
        PresetScreen screen;
        WzSubWindowManager& windows = screen.window.windows();
        windows.renameLayout(0, text("First"));
        for (int i = 1; i < layouts; ++i)
            windows.addLayoutAtEnd(QString::number(i));
        const auto before = windows.getWindowLayoutPresets(true);
        QVERIFY(!screen.window.undoStep().isPossible());
        windows.onDeleteLayout(0, true);
        QTRY_COMPARE(screen.windowCount(), 0U);
        QTest::keyClick(&screen.window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(screen.windowCount(), 2U);
        QCOMPARE(windows.getNumberLayouts(), layouts);
        QCOMPARE(windows.getCurrentWindowLayout(), 0);
        QCOMPARE(windows.getCurrentLayoutName(), text("First"));
        QCOMPARE(windows.getWindowLayoutPresets(true).front().getSubWindowPresets().front().getWindowBounds(),
                 before.front().getSubWindowPresets().front().getWindowBounds());
        QVERIFY(!screen.window.undoStep().isPossible());
    }

    void numbersStandForThem()
    {
        using Command = CommandExecutor::Command;
        PresetScreen screen;
        CommandExecutor& commands = screen.window.commands();
        screen.tell("A,B");
        QVERIFY(!commands.whyNot(Command::SavePreset).isEmpty());
        commands.execute(static_cast<Command>(static_cast<int>(Command::LoadPreset1) + 2));
        QVERIFY(screen.asked.isEmpty()); // there is no third one
        commands.execute(static_cast<Command>(static_cast<int>(Command::LoadPreset1) + 1));
        QCOMPARE(screen.asked, names("B"));
        screen.requests().onAnswered(text("B"), Answer::Came);
        commands.execute(Command::SavePreset);
        QCOMPARE(screen.asked, names("B,B"));
        QVERIFY(!commands.whyNot(Command::LoadPreset1).isEmpty()); // busy
        QVERIFY(!commands.whyNot(Command::UndoPreset).isEmpty());
        commands.execute(Command::OpenPresets);
        QVERIFY(screen.panel());
    }

    void onlyTheLastStepIsTakenBack()
    {
        UndoStep undo;
        QStringList done;
        bool isPossible = true;
        undo.offer(text("first"), [&done] { done << text("first"); });
        undo.offer(
            text("second"), [&done] { done << text("second"); }, [&isPossible] { return isPossible; });
        isPossible = false;
        undo.undo();
        QVERIFY(done.isEmpty());
        isPossible = true;
        undo.undo();
        undo.undo();
        QCOMPARE(done, QStringList{text("second")});
    }

private:
    std::optional<QTemporaryDir> m_home;
};

WZ_TEST_CLASS(tst_PresetsPanel)
#include "tst_PresetsPanel.moc"
