#include "gui/framework/WzTitleLine.h"
#include "gui/support/WindowFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QMouseEvent>
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
