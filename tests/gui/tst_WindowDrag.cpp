#include "gui/framework/ContentHelpPage.h"
#include "gui/framework/WzTitleLine.h"
#include "gui/support/WindowFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QMouseEvent>
#include <QPushButton>
#include <QRubberBand>
#include <QSignalSpy>

#include <functional>

using Change = std::function<void(WindowFixture&, WzSubWindow*)>;
Q_DECLARE_METATYPE(Change)

namespace {

const QString kScope = QStringLiteral("Scope");

/// Presses, moves or releases the left button at a place of the instrument area, as the platform would.
void sendMouse(QWidget* receiver, const WindowFixture& fixture, QEvent::Type type, const QPoint& place)
{
    const QPoint global = fixture.area.mapToGlobal(place);
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, receiver->mapFromGlobal(global), global, isMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(receiver, &event);
}

bool showsPreview(const WindowFixture& fixture)
{
    return fixture.area.viewport()->findChild<QRubberBand*>() != nullptr;
}

/// A window of which the title line is being dragged.
struct DraggedWindow {
    explicit DraggedWindow(WindowFixture& fixture)
    {
        fixture.addKind(kScope);
        window = fixture.open(kScope);
        window->setBounds({480, 270, 480, 270});
        QWidget* const title = window->findChild<WzTitleLine*>();
        sendMouse(title, fixture, QEvent::MouseButtonPress, {600, 285});
        sendMouse(title, fixture, QEvent::MouseMove, {900, 285});
    }
    QPointer<WzSubWindow> window;
};

} // namespace

class tst_WindowDrag : public WzTest {
    Q_OBJECT
private slots:
    void theTitleLineMovesTheWindow()
    {
        WindowFixture fixture;
        const DraggedWindow dragged(fixture);
        QVERIFY(showsPreview(fixture));
        QCOMPARE(dragged.window->geometry(), QRect(480, 270, 480, 270));
        sendMouse(dragged.window->findChild<WzTitleLine*>(), fixture, QEvent::MouseButtonRelease, {900, 285});
        QVERIFY(!showsPreview(fixture));
        QCOMPARE(dragged.window->geometry(), QRect(780, 270, 480, 270));
    }

    void aDragEndsWhenTheScreenChanges_data()
    {
        QTest::addColumn<Change>("change");
        QTest::newRow("window deleted") << Change([](WindowFixture&, WzSubWindow* window) { delete window; });
        QTest::newRow("window closed")
            << Change([](WindowFixture&, WzSubWindow* window) { window->close(); });
        QTest::newRow("window hidden") << Change([](WindowFixture&, WzSubWindow* window) { window->hide(); });
        QTest::newRow("full screen") << Change(
            [](WindowFixture&, WzSubWindow* window) { window->toggleFullScreen(); });
        QTest::newRow("same layout again") << Change([](WindowFixture& fixture, WzSubWindow*) {
            fixture.manager.loadWindowLayoutPresets(fixture.manager.getWindowLayoutPresets(true));
        });
        QTest::newRow("lock") << Change(
            [](WindowFixture& fixture, WzSubWindow*) { fixture.state.setLayoutLocked(true); });
    }
    void aDragEndsWhenTheScreenChanges()
    {
        QFETCH(Change, change);
        WindowFixture fixture;
        const DraggedWindow dragged(fixture);
        QVERIFY(showsPreview(fixture));
        change(fixture, dragged.window);
        QVERIFY(!showsPreview(fixture));
    }

    void aDoubleClickOnTheTitleLineIsForTheWindow()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        QWidget* const title = window->findChild<WzTitleLine*>();
        QTest::mouseDClick(title, Qt::LeftButton, {}, {200, 15});
        QVERIFY(window->isSubWindowFullScreen());
        QTest::mouseDClick(title, Qt::LeftButton, {}, {title->width() - 20, 15});
        QVERIFY(window->isSubWindowFullScreen());
    }

    void theHelpIsHitBelowTheTitleLineToo_data()
    {
        QTest::addColumn<QPoint>("from"); // the right end of the window, from its top
        QTest::addColumn<bool>("shows");
        QTest::newRow("in the title line") << QPoint(20, 15) << true;
        QTest::newRow("below it, in the corner") << QPoint(10, 40) << true;
        QTest::newRow("at its lower left") << QPoint(54, 54) << true;
        QTest::newRow("further left") << QPoint(64, 40) << false;
        QTest::newRow("further down") << QPoint(30, 62) << false;
    }
    void theHelpIsHitBelowTheTitleLineToo()
    {
        QFETCH(QPoint, from);
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        window->setBounds({480, 270, 480, 270});
        const QPoint place(window->geometry().right() - from.x(), window->geometry().top() + from.y());
        const auto tap = [&] {
            QWidget* const receiver = fixture.area.viewport()->childAt(place);
            sendMouse(receiver, fixture, QEvent::MouseButtonPress, place);
            sendMouse(receiver, fixture, QEvent::MouseButtonRelease, place);
        };
        const auto shows = [&] { return window->findChild<ContentHelpPage*>() != nullptr; };
        tap();
        QTEST(shows(), "shows");
        QCOMPARE(window->geometry(), QRect(480, 270, 480, 270));
        // A control of the content that stands there is still reached.
        if (!shows()) {
            QPushButton button(window->content());
            QSignalSpy clicks(&button, &QPushButton::clicked);
            button.setGeometry(window->content()->width() - 60, 0, 60, 60);
            button.show();
            QTest::mouseClick(&button, Qt::LeftButton, {}, {20, 15});
            QCOMPARE(clicks.size(), 1);
            QVERIFY(!shows());
        }
    }

    void aHandleAtTheEdgeIsTheContents()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        window->setBounds({480, 270, 480, 270});
        TestContent& content = fixture.contentOf(window);
        const QPoint edge(485, 400);
        const auto isHeldBack = [&] {
            const int before = content.presses;
            sendMouse(&content, fixture, QEvent::MouseButtonPress, edge);
            const bool held = content.presses == before;
            fixture.area.cancelDrag();
            return held;
        };
        QVERIFY(isHeldBack());
        content.handle = QRect(0, 90, 30, 30);
        QVERIFY(!isHeldBack());
    }

    void neighboursKeepTheirLeastSize_data()
    {
        QTest::addColumn<QRect>("first");
        QTest::addColumn<QRect>("second");
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("way");
        QTest::newRow("right edge") << QRect(0, 0, 960, 540) << QRect(960, 0, 600, 540) << QPoint(955, 300)
                                    << QPoint(800, 0);
        QTest::newRow("left edge") << QRect(960, 0, 960, 540) << QRect(300, 0, 660, 540) << QPoint(965, 300)
                                   << QPoint(-800, 0);
        QTest::newRow("lower edge") << QRect(0, 0, 960, 540) << QRect(0, 540, 960, 400) << QPoint(500, 535)
                                    << QPoint(0, 500);
        QTest::newRow("upper edge") << QRect(0, 540, 960, 540) << QRect(0, 200, 960, 340) << QPoint(500, 545)
                                    << QPoint(0, -500);
    }
    void neighboursKeepTheirLeastSize()
    {
        QFETCH(QRect, first);
        QFETCH(QRect, second);
        QFETCH(QPoint, from);
        QFETCH(QPoint, way);
        WindowFixture fixture;
        fixture.addKind(kScope, 2, true);
        WzSubWindow* const dragged = fixture.open(kScope);
        WzSubWindow* const neighbour = fixture.open(kScope);
        dragged->setBounds(first);
        neighbour->setBounds(second);
        QCOMPARE(dragged->geometry(), first);
        QCOMPARE(neighbour->geometry(), second);
        QWidget* const receiver = dragged->content();
        sendMouse(receiver, fixture, QEvent::MouseButtonPress, from);
        sendMouse(receiver, fixture, QEvent::MouseMove, from + way);
        sendMouse(receiver, fixture, QEvent::MouseButtonRelease, from + way);
        QVERIFY(dragged->geometry() != first);
        QCOMPARE(QRegion(dragged->geometry()).intersected(neighbour->geometry()), QRegion());
        QCOMPARE(dragged->geometry().united(neighbour->geometry()), first.united(second));
        QVERIFY(neighbour->width() == 480 || neighbour->height() == 270);
    }

    void onlyATapOnTheBackgroundIsOne()
    {
        WindowFixture fixture;
        QSignalSpy taps(&fixture.area, &WzMdiArea::backgroundTapped);
        QWidget* const background = fixture.area.viewport();
        sendMouse(background, fixture, QEvent::MouseButtonPress, {900, 500});
        QVERIFY(taps.isEmpty()); // it may become a swipe
        sendMouse(background, fixture, QEvent::MouseButtonRelease, {600, 500});
        QVERIFY(taps.isEmpty());
        sendMouse(background, fixture, QEvent::MouseButtonPress, {900, 500});
        sendMouse(background, fixture, QEvent::MouseButtonRelease, {903, 500});
        QCOMPARE(taps.size(), 1);
    }

    void theTopEdgeIsReachedThroughWindows()
    {
        WindowFixture fixture;
        fixture.addKind(kScope);
        WzSubWindow* const window = fixture.open(kScope);
        window->setBounds({0, 0, 960, 540});
        QSignalSpy requests(&fixture.area, &WzMdiArea::showToolbarRequested);
        QTest::mouseClick(window->content(), Qt::LeftButton, {}, {300, 200});
        QVERIFY(requests.isEmpty());
        QTest::mouseClick(window->findChild<WzTitleLine*>(), Qt::LeftButton, {}, {300, 5});
        QVERIFY(!requests.isEmpty());
    }
};

WZ_TEST_CLASS(tst_WindowDrag)
#include "tst_WindowDrag.moc"
