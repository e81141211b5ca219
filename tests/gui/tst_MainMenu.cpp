#include "gui/control/WzMenu.h"
#include "gui/shell/HelpDialog.h"
#include "gui/shell/LauncherPage.h"
#include "gui/shell/LauncherTile.h"
#include "gui/shell/LayoutCard.h"
#include "gui/shell/ListRow.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/support/ScreenFixture.h"
#include "presets/WindowLayoutPreset.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSignalSpy>

namespace {

QString text(const char* characters)
{
    return QString::fromLatin1(characters);
}

MainMenu& open(const ScreenFixture& screen, MainMenu::Section section = MainMenu::Section::Instruments)
{
    screen.window.panels().toggleMainMenu();
    auto& menu = *qobject_cast<MainMenu*>(screen.window.panels().openPanel());
    menu.showSection(section);
    return menu;
}

WzMenu* openContextMenu()
{
    return qobject_cast<WzMenu*>(QApplication::activePopupWidget());
}

} // namespace

class tst_MainMenu : public WzTest {
    Q_OBJECT
private slots:
    void theInputIsChosen()
    {
        ScreenFixture screen;
        screen.connection.noteConnected();
        MainMenu& menu = open(screen, MainMenu::Section::Inputs);
        QSignalSpy chosen(&menu, &MainMenu::toConfigCoreSignalSourceName);
        QVERIFY(!menu.row(text("No inputs"))->isEnabled());
        menu.fromStatusCoreSignalSourceAvailableNamesUpdated({text("A"), text("B")}, {}, true);
        menu.fromConfigCoreSignalSourceNameUpdated({text("A")}, {}, true);
        QVERIFY(menu.row(text("A"))->isChecked());
        QVERIFY(!menu.row(text("B"))->isChecked());
        menu.fromConfigCoreSignalSourceNameUpdated({text("A")}, {}, false);
        QVERIFY(!menu.row(text("B"))->isEnabled());
        menu.fromConfigCoreSignalSourceNameUpdated({text("A")}, {}, true);
        menu.row(text("B"))->click();
        QCOMPARE(chosen.value(0), QVariantList{text("B")});
        QVERIFY(!screen.window.panels().openPanel());
        // What was known of the inputs goes with the connection.
        MainMenu& again = open(screen, MainMenu::Section::Inputs);
        again.fromStatusCoreSignalSourceAvailableNamesUpdated({text("A"), text("B")}, {}, true);
        screen.connection.noteLost();
        QVERIFY(!again.row(text("A")));
    }

    void switchesStayWhereTheyAreTouched()
    {
        ScreenFixture screen;
        MainMenu& menu = open(screen, MainMenu::Section::System);
        menu.row(text("Light theme"))->click();
        QCOMPARE(screen.window.wzStyle().theme(), WzPalette::Theme::Light);
        QVERIFY(menu.isVisible());
        menu.row(text("Light theme"))->click();
        QCOMPARE(screen.window.wzStyle().theme(), WzPalette::Theme::Dark);
        menu.showSection(MainMenu::Section::Layouts);
        menu.row(text("Lock layouts"))->click();
        QVERIFY(screen.state.isLayoutLocked());
        QVERIFY(!menu.row(text("New layout"))->isEnabled());
        screen.state.setLayoutLocked(false);
        QVERIFY(menu.row(text("New layout"))->isEnabled());
        menu.row(text("New layout"))->click();
        QCOMPARE(screen.window.windows().getCurrentWindowLayout(), 1);
    }

    void layoutsAreShownFromTheMenu()
    {
        ScreenFixture screen;
        screen.window.windows().addLayoutAtEnd(text("Other"));
        open(screen, MainMenu::Section::Layouts).row(text("Other"))->click();
        QCOMPARE(screen.window.windows().getCurrentWindowLayout(), 1);
        // The one that is shown stays as it is, with what was changed in it.
        screen.catalogue.request(screen.catalogue.getAvailableSubWindows().front());
        open(screen, MainMenu::Section::Layouts).row(text("Other"))->click();
        QCOMPARE(screen.windowCount(), 1U);
    }

    void helpAndAboutReplaceTheMenu()
    {
        ScreenFixture screen;
        open(screen).row(text("Help"))->click();
        QVERIFY(qobject_cast<HelpDialog*>(screen.window.panels().openPanel()));
        screen.key(Qt::Key_Escape);
        QVERIFY(!screen.window.panels().openPanel());
    }

    void holdingATilePins()
    {
        ScreenFixture screen;
        LauncherTile* const tile = open(screen).launcher().tile(text("Scope"));
        QTest::mousePress(tile, Qt::LeftButton);
        QTest::qWait(HoldButton::kHoldMs + 50);
        QTest::mouseRelease(tile, Qt::LeftButton);
        QVERIFY(screen.window.panels().openPanel()); // not opened by the release
        QTRY_VERIFY(openContextMenu());
        // A theme that comes now finds menu and panel open.
        screen.window.wzStyle().setTheme(WzPalette::Theme::Light);
        screen.window.wzStyle().setTheme(WzPalette::Theme::Dark);
        openContextMenu()->actions().last()->trigger();
        openContextMenu()->close();
        QCOMPARE(screen.window.panels().favourites().all().size(), std::size_t(1));
        // A short press is a tap.
        QTest::mouseClick(tile, Qt::LeftButton);
        QTRY_VERIFY(!screen.window.panels().openPanel());
    }

    void commandsThatAreGoneDoNothing()
    {
        ScreenFixture screen;
        ScreenPanels& panels = screen.window.panels();
        panels.run(text("no such command"));
        panels.run(Favourite{Favourite::Kind::Command, text("no such command"), {}, {}});
        panels.run(Favourite{Favourite::Kind::Layout, text("no such layout"), {}, {}});
        panels.run(Favourite{Favourite::Kind::Window, text("Scope"), text("OtherContent"), {}});
        screen.state.setLayoutLocked(true);
        panels.run(text("newLayout"));
        QCOMPARE(screen.windowCount(), 2U);
        QCOMPARE(screen.window.windows().getNumberLayouts(), 1);
        QVERIFY(!panels.openPanel());
    }

    void aSketchStaysInItsFrame()
    {
        ScreenFixture screen;
        WzSubWindowPreset inside(text("ScopeContent"));
        inside.setWindowTitle(text("Scope"));
        inside.setWindowRole(WindowRole::Instrument);
        inside.setWindowBounds({960, 540, 960, 540});
        WzSubWindowPreset outside(text("Unknown"));
        outside.setWindowBounds({-2000000000, 500, 2000000000, 2000000000});
        WindowLayoutPreset layout;
        layout.setSubWindowPresets({inside, outside, WzSubWindowPreset()});
        const auto windows = LayoutCard::windowsOf(layout, {1920, 1080}, screen.catalogue);
        QCOMPARE(windows.size(), std::size_t(3));
        QCOMPARE(windows[0].place, QRectF(0.5, 0.5, 0.5, 0.5));
        for (const LayoutCard::Window& window : windows)
            QVERIFY(QRectF(0, 0, 1, 1).contains(window.place) || window.place.isEmpty());
        QVERIFY(LayoutCard::windowsOf(layout, {}, screen.catalogue).empty());
    }
};

WZ_TEST_CLASS(tst_MainMenu)
#include "tst_MainMenu.moc"
