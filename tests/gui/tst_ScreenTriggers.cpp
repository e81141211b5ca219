#include "gui/control/FunctionController.h"
#include "gui/shell/ToolBar.h"
#include "gui/support/ScreenFixture.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSpinBox>

namespace {

using Screen = ScreenFixture;

} // namespace

class tst_ScreenTriggers : public WzTest {
    Q_OBJECT
private slots:
    void theActiveWindowComesFirst()
    {
        const Screen screen;
        QCOMPARE(screen.labels().first(), QStringLiteral("Freeze"));
        screen.press("Freeze");
        QVERIFY(screen.active().isFrozen());
        QVERIFY(screen.window.functionBar().button(0)->isSelected());
        // The other window is not frozen.
        QTest::keyClick(&screen.window, Qt::Key_Tab);
        QVERIFY(!screen.active().isFrozen());
        QVERIFY(!screen.window.functionBar().button(0)->isSelected());
        screen.window.windows().closeAllSubWindows();
        QTRY_COMPARE(screen.labels().first(), QStringLiteral("Previous Layout"));
    }

    void closingAsksFirst()
    {
        Screen screen;
        screen.press("Close Layout Windows");
        QCOMPARE(screen.labels().size(), 2);
        QTest::keyClick(&screen.window, Qt::Key_Escape);
        QCOMPARE(screen.windowCount(), 2U);
        // What was asked of one layout is not done to another.
        screen.press("Close Layout Windows");
        screen.window.windows().onSwitchWindowLayout(false);
        QVERIFY(!FunctionController::getInstance().canGoBack());
        screen.window.windows().onSwitchWindowLayout(true);
        screen.state.setLayoutLocked(true);
        screen.press("Close Layout Windows");
        QVERIFY(!FunctionController::getInstance().canGoBack());
        screen.press("Lock Layouts");
        screen.press("Close Layout Windows");
        screen.press("Close 2 Windows");
        QCOMPARE(screen.windowCount(), 0U);
        QVERIFY(!FunctionController::getInstance().canGoBack());
    }

    void windowsAreMovedByKeys()
    {
        Screen screen;
        WzSubWindow& active = *screen.window.area().activeWzSubWindow();
        active.setBounds({0, 0, 480, 270});
        const auto key = [&](Qt::Key pressed) { QTest::keyClick(screen.window.windowHandle(), pressed); };
        screen.press("Move Window");
        for (const Qt::Key pressed : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageUp})
            key(pressed);
        QCOMPARE(active.geometry(), QRect(480, 270, 960, 540));
        key(Qt::Key_Escape);
        QCOMPARE(active.geometry(), QRect(0, 0, 480, 270));
        QVERIFY(!FunctionController::getInstance().canGoBack());
        screen.press("Move Window");
        key(Qt::Key_Left); // stays inside
        key(Qt::Key_Right);
        screen.press("Done");
        QCOMPARE(active.geometry(), QRect(480, 0, 480, 270));
        key(Qt::Key_Down);
        QCOMPARE(active.geometry(), QRect(480, 0, 480, 270));
        screen.press("Move Window");
        screen.window.windows().onSwitchWindowLayout(false);
        QVERIFY(!FunctionController::getInstance().canGoBack());
        screen.window.windows().onSwitchWindowLayout(true);
        screen.state.setLayoutLocked(true);
        screen.press("Move Window");
        QVERIFY(!FunctionController::getInstance().canGoBack());
    }

    void arrowsGoFromWindowToWindow()
    {
        Screen screen;
        const auto key = [&](Qt::Key pressed) { QTest::keyClick(screen.window.windowHandle(), pressed); };
        WzSubWindow* const right = screen.window.area().activeWzSubWindow();
        key(Qt::Key_Tab);
        WzSubWindow* const left = screen.window.area().activeWzSubWindow();
        QVERIFY(left != right);
        left->setBounds({0, 0, 480, 270});
        right->setBounds({960, 540, 480, 270});
        key(Qt::Key_Up);
        QCOMPARE(screen.window.area().activeWzSubWindow(), left);
        key(Qt::Key_Right);
        QCOMPARE(screen.window.area().activeWzSubWindow(), right);
        // Without controls, OK opens the menu of the window.
        key(Qt::Key_Return);
        QVERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    }

    void aControlWithFocusIsEditedByTheBar()
    {
        Screen screen;
        auto* const number = new QSpinBox(&screen.active());
        number->setRange(0, 9999);
        number->setValue(1234);
        number->show();
        number->setFocus();
        QCOMPARE(screen.labels().first(), QStringLiteral("0"));
        screen.press("4");
        QTest::mouseClick(screen.window.functionBar().button(2), Qt::LeftButton);
        // The first digit replaces what was there.
        QCOMPARE(number->value(), 42);
        QVERIFY(number->hasFocus());
        delete number;
        QCOMPARE(screen.labels().first(), QStringLiteral("Freeze"));
    }

    void theBarsComeAtEitherEdge()
    {
        const Screen screen;
        for (const int y : {3, 1077}) {
            screen.window.functionBar().hide();
            screen.window.toolBar().hide();
            // Through the screen, as a finger does it: what comes up under it is not pressed.
            QTest::mouseClick(screen.window.windowHandle(), Qt::LeftButton, {}, {900, y});
            QVERIFY(screen.window.functionBar().isVisible());
            QVERIFY(screen.window.toolBar().isVisible());
        }
        QCOMPARE(screen.window.windows().getNumberLayouts(), 1);
        QCOMPARE(screen.window.functionBar().geometry().bottom(), 1079);
        screen.window.functionBar().hide();
        QTest::keyClick(&screen.window, Qt::Key_F10);
        QVERIFY(screen.window.functionBar().isVisible());
    }
};

WZ_TEST_CLASS(tst_ScreenTriggers)

#include "tst_ScreenTriggers.moc"
