#include "gui/shell/PanelKeys.h"

#include "gui/framework/SpotlightManager.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/WindowMover.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include <limits>

PanelKeys::PanelKeys(DisplayMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    connect(&SpotlightManager::getInstance(), &SpotlightManager::spotlightChanged, this,
            &PanelKeys::onSpotlightChanged);
    qApp->installEventFilter(this);
}

/// What lies over the windows keeps the keys, and gives them to the window that is active when it goes.
void PanelKeys::onSpotlightChanged(WzSubWindow* window)
{
    const bool isOurs = window && &window->area() == &m_window.area() && window->content();
    FocusSweepManager* const sweep = isOurs ? &window->content()->focusSweep() : nullptr;
    SpotlightManager& spotlight = SpotlightManager::getInstance();
    if (!spotlight.getCurrentSweepManager() || spotlight.getCurrentSweepManager() == m_windowSweep)
        spotlight.setCurrentSweepManager(sweep);
    else
        spotlight.setPrevSweepManager(sweep);
    m_windowSweep = sweep;
}

WzSubWindow* PanelKeys::activeWindow() const
{
    WzSubWindow* const window = SpotlightManager::getInstance().windowInSpotlight();
    return window && &window->area() == &m_window.area() ? window : nullptr;
}

FocusSweepManager* PanelKeys::currentSweep() const
{
    FocusSweepManager* sweep = SpotlightManager::getInstance().getCurrentSweepManager();
    if (!sweep)
        sweep = m_windowSweep; // what lay over the windows has died
    if (sweep)
        sweep->refreshArea();
    return sweep;
}

bool PanelKeys::eventFilter(QObject* watched, QEvent* event)
{
    // The menu key opens the main menu. A desktop makes a context menu of it, besides.
    if (event->type() == QEvent::ContextMenu
        && static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard)
        return true;
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType() || QApplication::activePopupWidget())
        return false;
    // Before the control that has the focus gets it, and not again on the key's way up from there.
    QWidget* const focused = QApplication::focusWidget();
    const auto* const target = focused ? focused : static_cast<QWidget*>(&m_window);
    if (watched != target || target->window() != &m_window)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::NoModifier && handle(key);
}

bool PanelKeys::handle(const QKeyEvent& event)
{
    const int key = event.key();
    if (m_window.mover().isMoving())
        return moveWindow(key);
    if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
        FocusSweepManager* const sweep = currentSweep();
        if (!sweep)
            moveSpotlight(key);
        return !sweep || onArrow(*sweep, key);
    }
    const bool isOk = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isOk && key != Qt::Key_PageUp && key != Qt::Key_PageDown && key != Qt::Key_Escape)
        return false;
    FocusSweepManager* const sweep = currentSweep();
    if (!sweep)
        return false;
    if (isOk)
        return onOk(*sweep);
    if (key != Qt::Key_Escape)
        return onKnob(*sweep, key == Qt::Key_PageUp);
    const bool leaves = sweep->isFocusWidgetSelected();
    sweep->deselectFocusWidget();
    return leaves;
}

bool PanelKeys::moveWindow(int key)
{
    WindowMover& mover = m_window.mover();
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        mover.move(key == Qt::Key_Left ? -1 : 1, 0);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        mover.move(0, key == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        mover.size(key == Qt::Key_PageUp);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        mover.keep();
        return true;
    case Qt::Key_Escape:
        mover.undo();
        return true;
    default:
        return false;
    }
}

bool PanelKeys::onArrow(FocusSweepManager& sweep, int key)
{
    const bool isHorizontal = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isTyping = qobject_cast<QLineEdit*>(sweep.getFocusedWidget()) && isHorizontal;
    if (isTyping || sweep.isFocusWidgetSelected())
        return false;
    if (sweep.getCompleteLinearSweepSize() == 0)
        moveSpotlight(key);
    else if (key == Qt::Key_Left)
        sweep.leftPressed();
    else if (key == Qt::Key_Right)
        sweep.rightPressed();
    else if (key == Qt::Key_Up)
        sweep.upPressed();
    else
        sweep.downPressed();
    return true;
}

bool PanelKeys::onKnob(FocusSweepManager& sweep, bool clockwise)
{
    if (sweep.getCompleteLinearSweepSize() == 0)
        return false;
    sweep.shaftTurned(clockwise);
    return true;
}

bool PanelKeys::onOk(FocusSweepManager& sweep)
{
    QWidget* const control = sweep.getFocusedWidget();
    if (control && control->hasFocus()) {
        if (qobject_cast<QLineEdit*>(control))
            return false; // it ends what is typed
        sweep.okPressed();
        return true;
    }
    WzSubWindow* const window = activeWindow();
    if (!window || !window->content() || &sweep != &window->content()->focusSweep())
        return false;
    window->openContextMenu(window->mapToGlobal(QPoint(0, WzSubWindow::kTitleLineHeight)));
    return true;
}

void PanelKeys::moveSpotlight(int key)
{
    const bool horizontal = key == Qt::Key_Left || key == Qt::Key_Right;
    const int sign = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    WzSubWindow* const active = m_window.area().activeWzSubWindow();
    WzSubWindow* nearest = nullptr;
    double least = std::numeric_limits<double>::max();
    for (WzSubWindow* const window : m_window.area().wzSubWindows()) {
        if (window == active || !window->isVisible())
            continue;
        const QPoint way = active ? window->geometry().center() - active->geometry().center() : QPoint(0, 0);
        const int along = sign * (horizontal ? way.x() : way.y());
        const int across = std::abs(horizontal ? way.y() : way.x());
        if (active && along <= 0)
            continue;
        const double distance = along + 2.0 * across; // what is straight ahead comes first
        if (distance < least) {
            least = distance;
            nearest = window;
        }
    }
    if (nearest)
        m_window.area().setActiveSubWindow(nearest);
}
