#include "gui/control/FunctionController.h"
#include "gui/shell/ConfirmationStrip.h"
#include "gui/shell/EntryLine.h"
#include "gui/shell/LauncherPage.h"
#include "gui/shell/LauncherTile.h"
#include "gui/shell/LayoutCard.h"
#include "gui/shell/LayoutsPanel.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/NetworkConnectionDialog.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/shell/ToolBar.h"
#include "gui/shell/ToolBarItem.h"
#include "gui/support/ScreenFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QPushButton>
#include <QSignalSpy>

#include <functional>

using Leave = std::function<void(ScreenFixture&)>;
Q_DECLARE_METATYPE(Leave)

namespace {

/// A finger at that place of the screen.
void tap(const ScreenFixture& screen, const QPoint& place)
{
    static QTouchDevice* const finger = QTest::createTouchDevice();
    QWindow* const window = screen.window.windowHandle();
    QTest::touchEvent(window, finger).press(0, place, window);
    QTest::touchEvent(window, finger).release(0, place, window);
}

void tap(const ScreenFixture& screen, const QWidget* widget)
{
    QVERIFY(widget);
    QTRY_VERIFY(!widget->visibleRegion().isEmpty());
    tap(screen, widget->mapTo(&screen.window, widget->rect().center()));
}

/// The button with that text in the panel that is open.
QPushButton* button(const ScreenFixture& screen, const QString& text)
{
    const auto buttons = screen.window.panels().openPanel()->findChildren<QPushButton*>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&text](const QPushButton* each) {
        return each->isVisible() && (each->text() == text || each->accessibleName() == text);
    });
    return found == buttons.end() ? nullptr : *found;
}

template<typename Panel>
Panel* openPanel(const ScreenFixture& screen)
{
    return qobject_cast<Panel*>(screen.window.panels().openPanel());
}

QStringList layoutNames(const ScreenFixture& screen)
{
    QStringList names;
    for (const auto& overview : screen.window.windows().getLayoutOverview())
        names << overview.name;
    return names;
}

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

} // namespace

class tst_ScreenPanels : public WzTest {
    Q_OBJECT
private slots:
    void aPanelIsLeftInManyWays_data()
    {
        QTest::addColumn<Leave>("leave");
        QTest::newRow("close button") << Leave([](ScreenFixture& s) { tap(s, button(s, text("Close"))); });
        QTest::newRow("Escape") << Leave([](ScreenFixture& s) { s.key(Qt::Key_Escape); });
        QTest::newRow("back arrow") << Leave(
            [](ScreenFixture&) { FunctionController::getInstance().velmoraButtonPressed(); });
        QTest::newRow("tap beside it") << Leave([](ScreenFixture& s) { tap(s, QPoint(1900, 540)); });
        QTest::newRow("another panel") << Leave([](ScreenFixture& s) {
            s.window.panels().run(text("help"));
            s.key(Qt::Key_Escape);
        });
        QTest::newRow("deleted") << Leave([](ScreenFixture& s) { delete s.window.panels().openPanel(); });
    }
    void aPanelIsLeftInManyWays()
    {
        QFETCH(Leave, leave);
        ScreenFixture screen;
        const QStringList labels = screen.labels();
        screen.window.panels().run(text("layouts"));
        const QPointer<ShellPanel> panel = screen.window.panels().openPanel();
        QVERIFY(panel->isVisible());
        QVERIFY(screen.labels() != labels);
        leave(screen);
        QTRY_VERIFY(!panel);
        QVERIFY(!screen.window.panels().openPanel());
        QCOMPARE(screen.labels(), labels);
        QVERIFY(!FunctionController::getInstance().canGoBack());
        QCOMPARE(screen.windowCount(), 2U);
    }

    void windowsOpenByTouch()
    {
        ScreenFixture screen;
        screen.window.windows().closeAllSubWindows();
        QTRY_COMPARE(screen.window.area().wzSubWindows().size(), std::size_t(0));
        ToolBarItem* const menu = screen.window.toolBar().findChild<ToolBarItem*>();
        tap(screen, menu);
        LauncherTile* const tile = openPanel<MainMenu>(screen)->launcher().tile(text("Scope"));
        tap(screen, tile);
        QTRY_COMPARE(screen.windowCount(), 1U);
        QVERIFY(!screen.window.panels().openPanel());
        // The next tap brings the one that is open to the front.
        tap(screen, menu);
        LauncherTile* const again = openPanel<MainMenu>(screen)->launcher().tile(text("Scope"));
        QCOMPARE(again->openCount(), 1);
        tap(screen, again);
        QTest::qWait(0);
        QCOMPARE(screen.windowCount(), 1U);
    }

    void windowsOpenByKeys()
    {
        ScreenFixture screen;
        screen.window.windows().closeAllSubWindows();
        QTRY_COMPARE(screen.window.area().wzSubWindows().size(), std::size_t(0));
        screen.key(Qt::Key_Menu, Qt::Key_Right, Qt::Key_Right);
        QVERIFY(qobject_cast<LauncherTile*>(QApplication::focusWidget()));
        screen.key(Qt::Key_Return);
        QCOMPARE(screen.windowCount(), 1U);
        // Ten buttons suffice, too; what cannot be done is not offered.
        screen.key(Qt::Key_Menu);
        screen.press("Open New");
        QCOMPARE(screen.windowCount(), 2U);
        screen.key(Qt::Key_Menu);
        QVERIFY(!screen.labels().contains(text("Open New")));
        screen.press("Close");
        QCOMPARE(screen.windowCount(), 1U);
        QVERIFY(screen.labels().contains(text("Open New")));
    }

    void favouritesArePinnedAndUsed()
    {
        ScreenFixture screen;
        ScreenPanels& panels = screen.window.panels();
        screen.key(Qt::Key_Menu);
        screen.press("Favourite");
        QCOMPARE(panels.favourites().all().size(), std::size_t(1));
        panels.favourites().pin({Favourite::Kind::Layout, text("Nowhere"), {}, {}});
        screen.window.windows().closeAllSubWindows();
        QTRY_COMPARE(screen.window.area().wzSubWindows().size(), std::size_t(0));
        QVERIFY(!openPanel<MainMenu>(screen)->row(text("Nowhere"))->isEnabled());
        tap(screen, openPanel<MainMenu>(screen)->row(text("Scope")));
        QTRY_COMPARE(screen.windowCount(), 1U);
    }

    void layoutsByKeys()
    {
        ScreenFixture screen;
        screen.window.panels().openLayouts();
        screen.press("New");
        QCOMPARE(layoutNames(screen), QStringList({text("Layout 1"), text("Layout 2")}));
        screen.press("Rename");
        QTest::keyClicks(QApplication::focusWidget(), text("A b"));
        screen.key(Qt::Key_Return);
        screen.press("Duplicate");
        QCOMPARE(layoutNames(screen), QStringList({text("Layout 1"), text("A b"), text("A b - 2")}));
        QCOMPARE(openPanel<LayoutsPanel>(screen)->selected(), 2);
        screen.press("Earlier");
        QCOMPARE(layoutNames(screen), QStringList({text("Layout 1"), text("A b - 2"), text("A b")}));
        // The safe answer has the focus.
        screen.press("Delete");
        screen.key(Qt::Key_Return);
        QCOMPARE(screen.window.windows().getNumberLayouts(), 3);
        screen.press("Delete");
        screen.key(Qt::Key_Escape);
        QCOMPARE(screen.window.windows().getNumberLayouts(), 3);
        QVERIFY(openPanel<LayoutsPanel>(screen)->isVisible());
        screen.press("Delete");
        screen.key(Qt::Key_Right, Qt::Key_Return);
        QCOMPARE(layoutNames(screen), QStringList({text("Layout 1"), text("A b")}));
        screen.press("Bring back");
        QCOMPARE(layoutNames(screen), QStringList({text("Layout 1"), text("A b - 2"), text("A b")}));
        screen.key(Qt::Key_Left, Qt::Key_Return);
        QCOMPARE(screen.window.windows().getCurrentWindowLayout(), 0);
        QVERIFY(!screen.window.panels().openPanel());
        QCOMPARE(screen.windowCount(), 2U);
    }

    void layoutsByTouch()
    {
        ScreenFixture screen;
        screen.window.panels().openLayouts();
        auto* const panel = openPanel<LayoutsPanel>(screen);
        tap(screen, button(screen, text("New")));
        tap(screen, button(screen, text("Rename")));
        for (const char* const key : {"X", "y"})
            tap(screen, button(screen, text(key)));
        tap(screen, button(screen, text("Set")));
        QCOMPARE(layoutNames(screen).last(), text("Xy"));
        // A tap selects, another one opens.
        tap(screen, panel->cards().front());
        QTRY_COMPARE(panel->selected(), 0);
        QCOMPARE(screen.window.windows().getCurrentWindowLayout(), 1);
        QCOMPARE(panel->cards().front()->windows().size(), std::size_t(2));
        tap(screen, button(screen, text("Delete")));
        tap(screen, panel->findChild<ConfirmationStrip*>()->findChildren<QPushButton*>().last());
        QCOMPARE(layoutNames(screen), QStringList{text("Xy")});
        tap(screen, button(screen, text("Bring back")));
        QCOMPARE(layoutNames(screen), QStringList({text("Layout 1"), text("Xy")}));
        tap(screen, panel->cards().front());
        QTRY_VERIFY(!screen.window.panels().openPanel());
    }

    void theLockHoldsInTheOverview()
    {
        ScreenFixture screen;
        screen.window.panels().openLayouts();
        screen.press("Lock Layouts");
        for (const char* const name : {"New", "Rename", "Duplicate", "Delete"})
            QVERIFY2(!button(screen, text(name))->isEnabled(), name);
        QVERIFY(!screen.labels().contains(text("Delete")));
        // What was asked before the lock came is not done under it.
        screen.press("Lock Layouts");
        screen.press("New");
        screen.press("Delete");
        screen.state.setLayoutLocked(true);
        screen.key(Qt::Key_Right, Qt::Key_Return);
        QCOMPARE(screen.window.windows().getNumberLayouts(), 2);
    }

    void layoutsMayChangeUnderTheOverview()
    {
        ScreenFixture screen;
        WzSubWindowManager& windows = screen.window.windows();
        for (int i = 0; i < 3; ++i)
            windows.addLayoutAtEnd(QString::number(i));
        windows.setCurrentWindowLayout(3);
        screen.window.panels().openLayouts();
        screen.press("Rename");
        windows.loadWindowLayoutPresets({WindowLayoutPreset()});
        screen.key(Qt::Key_Return);
        QCOMPARE(openPanel<LayoutsPanel>(screen)->cards().size(), std::size_t(1));
        QCOMPARE(openPanel<LayoutsPanel>(screen)->selected(), 0);
        screen.window.wzStyle().setTheme(WzPalette::Theme::Light);
        screen.window.wzStyle().setTheme(WzPalette::Theme::Dark);
        QVERIFY(openPanel<LayoutsPanel>(screen)->isVisible());
    }

    void tilesThatTheInstrumentIsNotFittedForGo()
    {
        ScreenFixture screen;
        SupportedSubWindow eye;
        eye.windowTitle = text("Eye");
        eye.group = text("Physical");
        eye.neededFeatures = Velmora::Wz::Device::EyeAndJitter;
        screen.catalogue.add(eye);
        screen.window.panels().toggleMainMenu();
        LauncherPage& launcher = openPanel<MainMenu>(screen)->launcher();
        QVERIFY(launcher.tile(text("Eye"))->isVisible());
        launcher.fromStatusCoreFittedFeaturesUpdated({text("ST 2110"), text("A new one")}, {}, true);
        QVERIFY(!launcher.tile(text("Eye"))->isVisible());
        QVERIFY(launcher.tile(text("Scope"))->isVisible());
        QVERIFY(!openPanel<MainMenu>(screen)->row(text("Physical")));
        launcher.fromStatusCoreFittedFeaturesUpdated({text("Eye and jitter")}, {}, true);
        QVERIFY(launcher.tile(text("Eye"))->isVisible());
        QVERIFY(openPanel<MainMenu>(screen)->row(text("Physical")));
    }

    /// What the instrument wants to know waits until the user is done with what is open.
    void thePanelsOfOthersWait()
    {
        ScreenFixture screen;
        ScreenPanels& panels = screen.window.panels();
        panels.openLayouts();
        bool isWanted = true;
        for (int i = 0; i < 2; ++i)
            panels.showWhenFree([&]() -> ShellPanel* {
                return isWanted ? new NetworkConnectionDialog(screen.window, screen.connection) : nullptr;
            });
        QVERIFY(openPanel<LayoutsPanel>(screen));
        screen.key(Qt::Key_Escape);
        QTRY_VERIFY(openPanel<NetworkConnectionDialog>(screen));
        isWanted = false;
        panels.closePanel();
        QTest::qWait(0);
        QVERIFY(!panels.openPanel());
    }

    void addresses_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("valid");
        const std::pair<const char*, bool> rows[] = {{"127.0.0.1", true},
                                                     {"192.168.1.20", true},
                                                     {"255.255.255.254", true},
                                                     {"", false},
                                                     {"1", false},
                                                     {"1.2.3", false},
                                                     {"1.2.3.256", false},
                                                     {"1.2.3.4.5", false},
                                                     {"0.0.0.0", false},
                                                     {"255.255.255.255", false},
                                                     {"224.0.0.1", false},
                                                     {"::1", false},
                                                     {"instrument", false},
                                                     {" 1.2.3.4", false},
                                                     {"1.2.3.-4", false}};
        for (const auto& [address, valid] : rows)
            QTest::newRow(address) << text(address) << valid;
    }
    void addresses()
    {
        QFETCH(QString, address);
        QTEST(NetworkConnectionDialog::isAddress(address), "valid");
    }

    void theAddressIsEntered()
    {
        ScreenFixture screen;
        screen.connection.setAddress(text("127.0.0.1"));
        ScreenPanels& panels = screen.window.panels();
        QSignalSpy wanted(&panels, &ScreenPanels::connectRequested);
        panels.openNetworkConnection();
        EntryLine& address = openPanel<NetworkConnectionDialog>(screen)->address();
        for (const char* const key : {"1", "0", ".", "0", ".", "0", "."})
            tap(screen, button(screen, text(key)));
        QCOMPARE(address.text(), text("10.0.0."));
        QVERIFY(!button(screen, text("Connect"))->isEnabled());
        screen.key(Qt::Key_Return);
        QVERIFY(wanted.isEmpty());
        screen.press("7");
        screen.key(Qt::Key_Return);
        QCOMPARE(wanted.size(), 1);
        QCOMPARE(wanted.first(), QVariantList({text("10.0.0.7"), true}));
        // Back from entering to the panel's own buttons, and then out of it.
        FunctionController::getInstance().velmoraButtonPressed();
        screen.press("This device");
        QCOMPARE(address.text(), text("127.0.0.1"));
        FunctionController::getInstance().velmoraButtonPressed();
        QTRY_VERIFY(!panels.openPanel());
    }
};

WZ_TEST_CLASS(tst_ScreenPanels)
#include "tst_ScreenPanels.moc"
