#include "gui/support/WindowFixture.h"
#include "presets/ClientSectionPresets.h"
#include "gui/style/WzCustomStyle.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QTouchDevice>

Q_DECLARE_METATYPE(std::vector<WzSubWindowPreset>)

namespace {

const QString kScope = QStringLiteral("Scope");
const QString kMany = QStringLiteral("Many");
const QString kList = QStringLiteral("List");

WzSubWindowPreset presetOf(const QString& title, const QRect& bounds)
{
    WzSubWindowPreset preset(title + QLatin1String("Content"));
    preset.setWindowTitle(title);
    preset.setWindowRole(WindowRole::Instrument);
    preset.setWindowBounds(bounds);
    return preset;
}

WindowLayoutPreset layoutOf(const std::vector<WzSubWindowPreset>& windows)
{
    WindowLayoutPreset layout;
    layout.setLayoutName(QStringLiteral("Loaded"));
    layout.setSubWindowPresets(windows);
    return layout;
}

/// What is on the screen: the windows with their places, from the lowest to the highest.
QStringList screenOf(const WindowFixture& fixture)
{
    QStringList screen;
    for (const WzSubWindow* const window : fixture.area.wzSubWindows(QMdiArea::StackingOrder)) {
        const QRect place = window->geometry();
        screen << QStringLiteral("%1 %2 %3x%4+%5+%6 %7")
                      .arg(window->windowTitle(), QString::number(window->getInstanceNumber()),
                           QString::number(place.width()), QString::number(place.height()),
                           QString::number(place.x()), QString::number(place.y()),
                           WindowFixture::contentOf(window).text);
    }
    return screen;
}

} // namespace

class tst_Windows : public WzTest {
    Q_OBJECT
private slots:
    void newWindowsTile()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        QRegion covered;
        for (int i = 0; i < 4; ++i) {
            const WzSubWindow* const window = fixture.open(kScope);
            QVERIFY(window);
            QCOMPARE(window->size(), QSize(960, 540));
            QCOMPARE(window->getInstanceNumber(), i);
            QVERIFY2(covered.intersected(window->geometry()).isEmpty(),
                     qPrintable(screenOf(fixture).join(QLatin1Char('\n'))));
            covered += window->geometry();
        }
        QCOMPARE(covered, QRegion(0, 0, 1920, 1080));
    }

    void aWindowBesideAFullScreenOneTakesFreeCells()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.open(kScope)->setSubWindowFullScreen(true);
        const WzSubWindow* const second = fixture.open(kScope);
        // The first returns to its place as the second comes to lie over it.
        QCOMPARE(second->geometry(), QRect(960, 0, 960, 540));
        QCOMPARE(fixture.area.wzSubWindows().front()->geometry(), QRect(0, 0, 960, 540));
    }

    void instanceNumbersFillGaps()
    {
        WindowFixture fixture;
        const SupportedSubWindow kind = fixture.addKind(kScope, 3);
        fixture.open(kScope);
        WzSubWindow* const middle = fixture.open(kScope);
        fixture.open(kScope);
        QVERIFY(!fixture.open(kScope));
        middle->close();
        QCOMPARE(fixture.manager.getNextInstanceNumber(kind), 1);
        QCOMPARE(fixture.open(kScope)->getInstanceNumber(), 1);
    }

    void aRequestBeyondTheMaximumShowsTheOpenWindow()
    {
        WindowFixture fixture;
        fixture.addKind(kScope, 1);
        fixture.addKind(kList);
        WzSubWindow* const scope = fixture.open(kScope);
        fixture.open(kList);
        scope->hide();
        QVERIFY(!fixture.open(kScope));
        QVERIFY(scope->isVisible());
        QCOMPARE(fixture.area.activeWzSubWindow(), scope);
    }

    void whatCannotBeMadeIsSaidAndLeftOut()
    {
        WindowFixture fixture;
        SupportedSubWindow broken;
        broken.windowTitle = kScope;
        broken.contentClassName = QStringLiteral("ScopeContent");
        broken.makeContent = [](WzSubWindow&) -> WzSubwindowContent* { return nullptr; };
        fixture.catalogue.add(broken);
        log().expectError(QStringLiteral("Error: the window \"Scope\" could not be made"));
        QVERIFY(!fixture.open(kScope));
        QVERIFY(!fixture.open(QStringLiteral("Nobody")));
        QVERIFY(fixture.area.wzSubWindows().empty());
    }

    void aReopenedWindowComesBackAsItWas()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* window = fixture.open(kScope);
        fixture.contentOf(window).text = QStringLiteral("kept");
        window->close();
        fixture.manager.getWindowLayoutPresets(true); // as a save does, whenever it comes
        window = fixture.open(kScope);
        QCOMPARE(fixture.contentOf(window).text, QStringLiteral("kept"));
        window->close();
        fixture.manager.setCurrentWindowLayout(0);
        QVERIFY(fixture.area.wzSubWindows().empty()); // and what was closed stays closed
    }

    void sizesAreThoseThatTheContentAllows()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.addKind(kList, 1, true);
        WzSubWindow* const fixed = fixture.open(kScope);
        fixed->setBounds({100, 100, 500, 300});
        QCOMPARE(fixed->geometry(), QRect(100, 100, 480, 270));
        fixed->setBounds({1900, 1000, 1500, 900});
        QCOMPARE(fixed->geometry(), QRect(0, 0, 1920, 1080));
        WzSubWindow* const free = fixture.open(kList);
        free->setBounds({333, 77, 777, 444});
        QCOMPARE(free->geometry(), QRect(330, 80, 780, 440));
        free->setBounds({0, 0, 1, 1});
        QCOMPARE(free->size(), QSize(480, 270));
    }

    void windowsAreDragged_data()
    {
        QTest::addColumn<QPoint>("grip"); // in the window, which stands at 480, 270 and is 480 x 270
        QTest::addColumn<QPoint>("way");
        QTest::addColumn<QRect>("lands");
        QTest::newRow("by its title") << QPoint(40, 10) << QPoint(303, 97) << QRect(780, 370, 480, 270);
        QTest::newRow("out of the area") << QPoint(40, 10) << QPoint(5000, -5000) << QRect(1440, 0, 480, 270);
        QTest::newRow("too little") << QPoint(40, 10) << QPoint(6, 5) << QRect(480, 270, 480, 270);
        QTest::newRow("by its right edge") << QPoint(470, 100) << QPoint(400, 0) << QRect(480, 270, 960, 540);
        QTest::newRow("by its lower left corner")
            << QPoint(20, 250) << QPoint(-400, 200) << QRect(0, 270, 960, 540);
        QTest::newRow("in the middle") << QPoint(240, 130) << QPoint(300, 0) << QRect(480, 270, 480, 270);
    }
    void windowsAreDragged()
    {
        QFETCH(QPoint, grip);
        QFETCH(QPoint, way);
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        window->setBounds({480, 270, 480, 270});
        QWidget* const target = window->childAt(grip);
        const QPoint start = target->mapFrom(window, grip);
        QTest::mousePress(target, Qt::LeftButton, {}, start);
        for (int i = 1; i <= 4; ++i)
            dragTo(target, start + way * i / 4);
        QTest::mouseRelease(target, Qt::LeftButton, {}, start + way);
        QTEST(window->geometry(), "lands");
    }

    void fullScreenAndBack()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        window->setBounds({480, 270, 480, 270});
        window->setSubWindowFullScreen(true);
        QCOMPARE(window->geometry(), QRect(0, 0, 1920, 1080));
        fixture.manager.updateLayoutsFromCurrentSubWindows();
        const auto stored = fixture.manager.layoutAt(0)->getSubWindowPresets().front();
        QVERIFY(stored.getWindowFullScreenInFocus());
        QCOMPARE(stored.getWindowBounds(), QRect(480, 270, 480, 270));
        fixture.manager.setCurrentWindowLayout(0);
        QVERIFY(fixture.area.wzSubWindows().front()->isSubWindowFullScreen());
        fixture.area.wzSubWindows().front()->setSubWindowFullScreen(false);
        QCOMPARE(fixture.area.wzSubWindows().front()->geometry(), QRect(480, 270, 480, 270));
    }

    void swipingGrowsTheListToSixteen()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.manager.onSwitchWindowLayout(false);
        QCOMPARE(fixture.layoutNames().size(), 1); // an empty screen never grows
        for (int i = 1; i < 20; ++i) {
            fixture.open(kScope);
            fixture.manager.onSwitchWindowLayout(false);
        }
        QCOMPARE(fixture.layoutNames().size(), 16);
        QCOMPARE(fixture.manager.getCurrentWindowLayout(), 15);
        QCOMPARE(fixture.layoutNames().size(), 16);
        fixture.manager.onSwitchWindowLayout(true);
        QCOMPARE(fixture.manager.getCurrentWindowLayout(), 14);
        QCOMPARE(fixture.manager.getVisibleOpenWindows().size(), std::size_t{1});
    }

    /// By finger and by mouse, begun on a window's content.
    void swipesSwitchLayouts_data()
    {
        QTest::addColumn<bool>("byTouch");
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("layout");
        QTest::newRow("finger, to the next") << true << -900 << 1;
        QTest::newRow("mouse, to the next") << false << -900 << 1;
        QTest::newRow("finger, back again") << true << -100 << 0;
        QTest::newRow("finger, downwards") << true << 0 << 0;
    }
    void swipesSwitchLayouts()
    {
        QFETCH(bool, byTouch);
        QFETCH(int, way);
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        window->setSubWindowFullScreen(true);
        fixture.manager.addLayoutAtEnd(QStringLiteral("Other"));
        QCoreApplication::processEvents();
        QTouchDevice* const screen = QTest::createTouchDevice();
        const QPoint start(1500, 500);
        const auto at = [&](int step) { return start + QPoint(way, way == 0 ? 300 : 0) * step / 10; };
        if (byTouch) {
            QTest::touchEvent(&fixture, screen).press(0, start, &fixture);
            for (int i = 1; i <= 10; ++i) {
                QTest::qWait(20); // slow enough to be no flick
                QTest::touchEvent(&fixture, screen).move(0, at(i), &fixture);
            }
            QTest::touchEvent(&fixture, screen).release(0, at(10), &fixture);
        } else {
            QWidget* const content = window->content();
            QTest::mousePress(content, Qt::LeftButton, {}, start);
            for (int i = 1; i <= 10; ++i)
                dragTo(content, at(i));
            QTest::mouseRelease(content, Qt::LeftButton, {}, at(10));
        }
        QTRY_VERIFY(!fixture.area.isSwipeGestureInProgress());
        QTEST(fixture.manager.getCurrentWindowLayout(), "layout");
    }

    void aSecondFingerTakesTheSwipeBack()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.open(kScope)->setSubWindowFullScreen(true);
        fixture.manager.addLayoutAtEnd(QStringLiteral("Other"));
        QTouchDevice* const screen = QTest::createTouchDevice();
        const auto first = [](int step) { return QPoint(1500 - 100 * step, 500); };
        QTest::touchEvent(&fixture, screen).press(0, first(0), &fixture);
        for (int i = 1; i <= 5; ++i)
            QTest::touchEvent(&fixture, screen).move(0, first(i), &fixture);
        QVERIFY(fixture.area.isSwipeGestureInProgress());
        QTest::touchEvent(&fixture, screen).move(0, first(6), &fixture).press(1, QPoint(300, 300), &fixture);
        QTest::touchEvent(&fixture, screen).move(0, first(9), &fixture).stationary(1);
        QTest::touchEvent(&fixture, screen)
            .release(0, first(9), &fixture)
            .release(1, QPoint(300, 300), &fixture);
        QTRY_VERIFY(!fixture.area.isSwipeGestureInProgress());
        QCOMPARE(fixture.manager.getCurrentWindowLayout(), 0);
    }

    void theFreshLayoutStaysAndTheOneLeftEmptyGoes()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        fixture.manager.onSwitchWindowLayout(true);
        QCOMPARE(fixture.layoutNames(),
                 (QStringList{QStringLiteral("Layout 2"), QStringLiteral("Layout 1")}));
        QCOMPARE(fixture.manager.getCurrentWindowLayout(), 0);
        Q_UNUSED(window)
        fixture.manager.onSwitchWindowLayout(false);
        QCOMPARE(fixture.layoutNames(), QStringList{QStringLiteral("Layout 1")});
        QCOMPARE(fixture.manager.getVisibleOpenWindows().size(), std::size_t{1});
    }

    void tidyingShowsTheLayoutThatIsCurrentThen()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.open(kScope);
        fixture.manager.addLayoutAtEnd(QStringLiteral("Empty"));
        fixture.manager.setCurrentWindowLayout(1);
        fixture.manager.tidyUpEmptyLayoutsAtEnds(LayoutEnd::Both);
        QCOMPARE(fixture.layoutNames(), QStringList{QStringLiteral("Layout 1")});
        QCOMPARE(fixture.manager.getVisibleOpenWindows().size(), std::size_t{1});
    }

    void aDeletedLayoutCanComeBack()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.contentOf(fixture.open(kScope)).text = QStringLiteral("first");
        fixture.manager.onSwitchWindowLayout(false);
        fixture.open(kScope);
        fixture.manager.setCurrentWindowLayout(0);
        fixture.manager.onDeleteLayout(-1, true);
        QCOMPARE(fixture.layoutNames(), QStringList{QStringLiteral("Layout 2")});
        QCOMPARE(fixture.manager.deletedLayoutName(), QStringLiteral("Layout 1"));
        fixture.manager.restoreDeletedLayout();
        QCOMPARE(fixture.layoutNames(),
                 (QStringList{QStringLiteral("Layout 1"), QStringLiteral("Layout 2")}));
        QCOMPARE(fixture.contentOf(fixture.area.wzSubWindows().front()).text, QStringLiteral("first"));
        fixture.manager.onDeleteLayout(7, false); // the nearest
        QCOMPARE(fixture.layoutNames(), QStringList{QStringLiteral("Layout 1")});
        fixture.manager.renameLayout(0, QStringLiteral("Mine"));
        fixture.manager.onDeleteLayout(0, false);
        QCOMPARE(fixture.layoutNames(), QStringList{QStringLiteral("Layout 1")});
        QVERIFY(fixture.area.wzSubWindows().empty());
    }

    void theLockHoldsLayoutsAndWindows()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const first = fixture.open(kScope);
        WzSubWindow* const second = fixture.open(kScope);
        fixture.state.setLayoutLocked(true);
        QVERIFY(first->windowFlags().testFlag(Qt::MSWindowsFixedSizeDialogHint));
        QVERIFY(first->isVisible() && second->isVisible());
        fixture.manager.onSwitchWindowLayout(false);
        fixture.manager.onDeleteLayout(-1, true);
        QCOMPARE(fixture.layoutNames().size(), 1);
        QCOMPARE(fixture.area.wzSubWindows().size(), std::size_t{2});
        // A swipe steps through the windows at full screen.
        const QRect place = first->geometry();
        first->setSubWindowFullScreen(true);
        QCOMPARE(first->content()->geometry(), QRect(0, 0, 1920, 1080));
        fixture.manager.onSwitchFullScreenWindows(false);
        QVERIFY(second->isSubWindowFullScreen());
        QCOMPARE(first->geometry(), place);
        fixture.state.setLayoutLocked(false);
        QVERIFY(!first->windowFlags().testFlag(Qt::MSWindowsFixedSizeDialogHint));
        QVERIFY(first->isVisible());
        fixture.manager.onSwitchFullScreenWindows(false);
        QVERIFY(second->isSubWindowFullScreen());
    }

    void aLayoutReachedUnderTheLockKeepsItsPlaces()
    {
        const QRect place(480, 270, 480, 270);
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.manager.loadWindowLayoutPresets({layoutOf({}), layoutOf({presetOf(kScope, place)})});
        fixture.state.setLayoutLocked(true);
        fixture.manager.setCurrentWindowLayout(1);
        WzSubWindow* const window = fixture.area.wzSubWindows().front();
        window->toggleFullScreen();
        window->toggleFullScreen();
        QCOMPARE(window->geometry(), place);
    }

    void onlyTheActiveWindowIsHighlighted()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const first = fixture.open(kScope);
        WzSubWindow* const second = fixture.open(kScope);
        QVERIFY(second->isHighlighted() && !first->isHighlighted());
        QVERIFY(fixture.contentOf(second).active && !fixture.contentOf(first).active);
        fixture.manager.switchToWindow(kScope, 0);
        QVERIFY(first->isHighlighted() && !second->isHighlighted());
        QVERIFY(fixture.contentOf(first).active && !fixture.contentOf(second).active);
    }

    void whatCannotBeSeenIsTold()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const lower = fixture.open(kScope);
        WzSubWindow* const upper = fixture.open(kScope);
        const auto& lowerContent = fixture.contentOf(lower);
        const auto& upperContent = fixture.contentOf(upper);
        QTRY_VERIFY(lowerContent.isExposed() && upperContent.isExposed());
        upper->setBounds(lower->geometry());
        QTRY_VERIFY(!lowerContent.isExposed());
        upper->setBounds(lower->geometry().translated(10, 0));
        QTRY_VERIFY(lowerContent.isExposed());
        upper->hide();
        QTRY_VERIFY(!upperContent.isExposed());
        fixture.showMinimized();
        QTRY_VERIFY(!lowerContent.isExposed());
        fixture.showNormal();
        QTRY_VERIFY(lowerContent.isExposed());
        fixture.area.prepareForPowerOff();
        QVERIFY(!lowerContent.isExposed());
    }

    void windowsThatStayOnTopDo()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const top = fixture.open(kScope);
        top->setStaysOnTop(true);
        fixture.open(kScope);
        fixture.open(kScope);
        QCOMPARE(fixture.area.wzSubWindows(QMdiArea::StackingOrder).back(), top);
    }

    void statesAreShown()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        auto& content = fixture.contentOf(window);
        const auto overlay = [window] {
            return window->findChild<QWidget*>(QStringLiteral("ContentStateOverlay"));
        };
        QVERIFY(overlay()); // not connected
        fixture.connectInstrument();
        QVERIFY(overlay()); // no value yet
        content.noteDataArrived();
        QVERIFY(!overlay());
        content.setFrozen(true);
        QVERIFY(overlay());
        content.setFrozen(false);
        content.setLostCount(3);
        QVERIFY(overlay());
        QTest::mouseClick(&content, Qt::LeftButton, {}, content.rect().center());
        QVERIFY(!overlay()); // looked at
        fixture.connection.noteLost();
        QVERIFY(overlay());
    }

    void overdueValuesGoStale()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        auto& content = fixture.contentOf(fixture.open(kScope));
        fixture.connectInstrument();
        QTRY_VERIFY(content.isExposed());
        content.setUpdatesDue(true);
        content.noteDataArrived();
        QTRY_COMPARE(content.staleSeconds, QList<int>{1});
        content.noteDataArrived();
        QCOMPARE(content.staleSeconds, (QList<int>{1, 0}));
        // Nothing stays dimmed for which no value is due, or of which the instrument has gone.
        QTRY_COMPARE(content.staleSeconds.size(), 3);
        content.setUpdatesDue(false);
        QCOMPARE(content.staleSeconds.back(), 0);
        content.setUpdatesDue(true);
        QTRY_COMPARE(content.staleSeconds.size(), 5);
        fixture.connection.noteLost();
        QCOMPARE(content.staleSeconds.back(), 0);
    }

    void theScreenMayChangeItsSize()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.addKind(kList, 1, true);
        WzSubWindow* const fixed = fixture.open(kScope);
        WzSubWindow* const free = fixture.open(kList);
        free->setBounds({1400, 800, 520, 280});
        fixed->setSubWindowFullScreen(true);
        fixture.area.resize(1280, 720);
        QCOMPARE(fixed->geometry(), QRect(0, 0, 1280, 720));
        QVERIFY(QRect(0, 0, 1280, 720).contains(free->geometry()));
        // What a small screen has no room for is back on a large one, also by way of a saved layout.
        fixture.manager.loadWindowLayoutPresets(fixture.manager.getWindowLayoutPresets(true));
        fixture.area.resize(1920, 1080);
        QCOMPARE(fixture.area.wzSubWindows().back()->geometry(), QRect(1400, 800, 520, 280));
        fixture.area.resize(301, 211);
        QVERIFY(fixture.area.instrumentArea().contains(free->geometry()));
        QVERIFY(!free->size().isEmpty());
    }

    void oddLayoutsLeaveTheScreenUsable_data()
    {
        QTest::addColumn<std::vector<WzSubWindowPreset>>("windows");
        QTest::addColumn<int>("shown");
        using Windows = std::vector<WzSubWindowPreset>;
        QTest::newRow("unknown class") << Windows{presetOf(QStringLiteral("Nobody"), {0, 0, 480, 270}),
                                                  presetOf(kScope, {0, 0, 480, 270})}
                                       << 1;
        QTest::newRow("off screen") << Windows{presetOf(kScope, {-5000, 99999, 480, 270})} << 1;
        QTest::newRow("size zero") << Windows{presetOf(kScope, {10, 10, 0, 0})} << 1;
        QTest::newRow("negative size") << Windows{presetOf(kScope, {10, 10, -10, -2000000000})} << 1;
        QTest::newRow("huge") << Windows{presetOf(kScope, {1000000000, -1000000000, 1000000000, 1000000000})}
                              << 1;
        WzSubWindowPreset bare(QStringLiteral("ScopeContent"));
        bare.setWindowTitle(kScope);
        QTest::newRow("no bounds") << Windows{bare} << 1;
        WzSubWindowPreset negative = bare;
        negative.setInstanceNumber(-7);
        QTest::newRow("negative instance") << Windows{negative} << 1;
        QTest::newRow("a thousand") << Windows(1000, presetOf(kScope, {0, 0, 480, 270})) << 16;
        QTest::newRow("a thousand of a kind without a limit")
            << Windows(1000, presetOf(kMany, {0, 0, 480, 270})) << LayoutScreen::kMaximumWindows;
    }
    void oddLayoutsLeaveTheScreenUsable()
    {
        QFETCH(std::vector<WzSubWindowPreset>, windows);
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.addKind(kMany, 1000);
        WindowLayoutPreset layout = layoutOf(windows);
        layout.setSubWindowOrder({static_cast<int>(windows.size()), -1, 0, 1000});
        fixture.manager.loadWindowLayoutPresets({layout});
        QTEST(static_cast<int>(fixture.area.wzSubWindows().size()), "shown");
        for (const WzSubWindow* const window : fixture.area.wzSubWindows()) {
            QVERIFY(QRect(0, 0, 1920, 1080).contains(window->geometry()));
            QVERIFY(window->width() >= 480 && window->height() >= 270);
        }
    }

    /// What a newer client has put into a layout survives an older one, untouched.
    void unknownWindowsStayInTheirLayout()
    {
        WzSubWindowPreset unknown = presetOf(QStringLiteral("Loudness"), {960, 540, 960, 540});
        unknown.setInstanceNumber(2);
        unknown.setAnalyserId(3'000'000'000U);
        DisplayMainWindowSettingsPreset settings; // of any class
        settings.set(QLatin1String("target"), -23);
        unknown.setWindowContentPreset(settings);
        WindowFixture fixture;
        fixture.addKind(kScope);
        QStringList told;
        connect(&fixture.manager, &WzSubWindowManager::windowsLeftOut, this,
                [&told](const QStringList& titles) { told << titles; });
        fixture.manager.loadWindowLayoutPresets(
            {layoutOf({unknown, presetOf(kScope, {0, 0, 480, 270})}), layoutOf({})});
        QCOMPARE(told, QStringList{QStringLiteral("Loudness")});
        fixture.open(kScope);
        // Neither saving nor leaving the layout, copying or tidying loses it.
        fixture.manager.duplicateLayout(0);
        fixture.manager.closeAllSubWindows();
        fixture.manager.tidyUpEmptyLayoutsAtEnds(LayoutEnd::Both);
        fixture.manager.setCurrentWindowLayout(1);
        fixture.manager.loadWindowLayoutPresets(fixture.manager.getWindowLayoutPresets(true), 1);
        const auto layouts = fixture.manager.getWindowLayoutPresets(true);
        QCOMPARE(layouts.size(), std::size_t(2));
        for (const WindowLayoutPreset& layout : layouts) {
            const auto windows = layout.getSubWindowPresets();
            QCOMPARE(windows.back().serialise(), unknown.serialise());
            QCOMPARE(layout.getSubWindowOrder().size(), windows.size());
        }
        QCOMPARE(layouts.back().subWindowCount(), 3);
        // The one client that knows it shows it.
        fixture.addKind(QStringLiteral("Loudness"));
        fixture.manager.loadWindowLayoutPresets(layouts);
        QCOMPARE(fixture.area.wzSubWindows().back()->geometry(), QRect(960, 540, 960, 540));
        // A layout that was deleted takes it along.
        fixture.manager.onDeleteLayout(1, false);
        fixture.manager.onDeleteLayout(0, false);
        QCOMPARE(fixture.manager.getWindowLayoutPresets(true).front().subWindowCount(), 0);
    }

    void emptyPresetsLeaveALayout()
    {
        WindowFixture fixture;
        fixture.manager.loadWindowLayoutPresets({});
        QCOMPARE(fixture.layoutNames(), QStringList{QStringLiteral("Layout 1")});
        fixture.addKind(kScope);
        fixture.open(kScope);
        fixture.manager.loadWindowLayoutPresets(
            {layoutOf({}), layoutOf({presetOf(kScope, {0, 0, 480, 270})})}, 1);
        QCOMPARE(fixture.manager.getCurrentWindowLayout(), 1);
        QCOMPARE(fixture.area.wzSubWindows().front()->geometry(), QRect(0, 0, 480, 270));
        fixture.manager.loadWindowLayoutPresets({layoutOf({})}, 7);
        QCOMPARE(fixture.manager.getCurrentWindowLayout(), 0);
    }

    /// Thousands of random steps; after each the screen and the list are sound, and what is saved comes back.
    void randomStepsKeepTheScreenSound()
    {
        const quint32 seed = qEnvironmentVariableIsSet("WZ_SEED") ? qEnvironmentVariableIntValue("WZ_SEED")
                                                                  : QRandomGenerator::system()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        WindowFixture fixture;
        fixture.addKind(kScope);
        fixture.addKind(kList, 3, true);
        for (int step = 0; step < 2000; ++step) {
            takeRandomStep(fixture, random);
            const QString fault = faultOf(fixture);
            QVERIFY2(fault.isEmpty(),
                     qPrintable(QStringLiteral("seed %1, step %2: %3")
                                    .arg(QString::number(seed), QString::number(step), fault)));
            if (step % 50 == 0)
                QCoreApplication::processEvents();
            if (step % 100 != 0)
                continue;
            const QStringList before = screenOf(fixture);
            fixture.manager.loadWindowLayoutPresets(fixture.manager.getWindowLayoutPresets(true));
            QCOMPARE(screenOf(fixture), before);
        }
    }

private:
    /// A move with the button held, which QTest::mouseMove() does not send.
    static void dragTo(QWidget* target, const QPoint& position)
    {
        QMouseEvent move(QEvent::MouseMove, position, target->mapToGlobal(position), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(target, &move);
    }

    static void takeRandomStep(WindowFixture& fixture, QRandomGenerator& random)
    {
        auto& manager = fixture.manager;
        const auto windows = fixture.area.wzSubWindows();
        WzSubWindow* const window =
            windows.empty() ? nullptr : windows[random.bounded(quint32(windows.size()))];
        const int layout = random.bounded(-1, manager.getNumberLayouts() + 1);
        const QRect bounds(random.bounded(-500, 2500), random.bounded(-500, 1500), random.bounded(2000),
                           random.bounded(1200));
        switch (random.bounded(16)) {
        case 0:
        case 1:
        case 2:
            fixture.open(random.bounded(3) ? kScope : kList);
            if (!fixture.area.wzSubWindows().empty())
                fixture.contentOf(fixture.area.wzSubWindows().back()).text =
                    QString::number(random.bounded(1000));
            break;
        case 3:
        case 4:
            if (window)
                window->setBounds(bounds);
            break;
        case 5:
            if (window)
                window->toggleFullScreen();
            break;
        case 6:
            if (window)
                window->close();
            break;
        case 7:
        case 8:
            manager.onSwitchWindowLayout(random.bounded(2) == 0);
            break;
        case 9:
            fixture.state.setLayoutLocked(random.bounded(3) == 0);
            break;
        case 10:
            manager.onDeleteLayout(layout, random.bounded(2) == 0);
            break;
        case 11:
            manager.duplicateLayout(layout);
            if (manager.getNumberLayouts() > 16)
                manager.onDeleteLayout(0, false);
            break;
        case 12:
            manager.moveLayout(layout, random.bounded(2) == 0);
            break;
        case 13:
            manager.setCurrentWindowLayout(layout);
            break;
        case 14:
            if (window)
                fixture.area.setActiveSubWindow(window);
            break;
        default:
            manager.restoreDeletedLayout();
            break;
        }
    }

    static QString faultOf(const WindowFixture& fixture)
    {
        const auto& manager = fixture.manager;
        if (manager.getNumberLayouts() < 1 || manager.getCurrentWindowLayout() < 0
            || manager.getCurrentWindowLayout() >= manager.getNumberLayouts())
            return QStringLiteral("no current layout");
        if (manager.getLayoutSwitchInProgress())
            return QStringLiteral("the switch does not end");
        QSet<QString> identities;
        for (const WzSubWindow* const window : fixture.area.wzSubWindows()) {
            if (!fixture.area.instrumentArea().contains(window->geometry()) || window->size().isEmpty())
                return QStringLiteral("a window is outside");
            const QString identity = window->windowTitle() + QString::number(window->getInstanceNumber());
            if (identities.contains(identity))
                return QStringLiteral("two windows are ") + identity;
            identities.insert(identity);
        }
        return {};
    }
};

WZ_TEST_CLASS(tst_Windows)
#include "tst_Windows.moc"
