#include "gui/control/FocusSweepManager.h"

#include "gui/control/FocusNeighbour.h"
#include "gui/control/KnobTurn.h"
#include "gui/control/TouchAction.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QLineEdit>
#include <QScrollArea>

#include <algorithm>

namespace {

bool canTakeFocus(const QWidget* widget)
{
    return widget->isEnabled() && widget->isVisible();
}

/// What a finger that touches the control means to change next, so that the knob is to act on it at once.
bool isEditedByTouch(const QWidget* widget)
{
    return qobject_cast<const QAbstractSlider*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget)
        || qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractScrollArea*>(widget);
}

} // namespace

FocusSweepManager::FocusSweepManager(QObject* parent)
    : QObject(parent)
{
}

// --- The sweeps

void FocusSweepManager::adoptLinearFocusSweep(std::vector<QWidget*>& controls, Qt::Orientation orientation)
{
    const QPointer<QWidget> focused = m_focused;
    const bool navigation = m_navigation || !focused;
    for (const QPointer<QWidget>& control : m_sweep) {
        if (control)
            control->removeEventFilter(this);
    }
    clear();
    for (QWidget* const control : controls) {
        if (!control || isWidgetInCompleteLinearSweep(control))
            continue;
        m_sweep.emplace_back(control);
        control->installEventFilter(this);
        if (control->focusProxy())
            control->focusProxy()->installEventFilter(this);
    }
    m_orientation = orientation;
    m_navigation = navigation;
    // A control that has come with the focus was not followed until now.
    QWidget* const present = QApplication::focusWidget();
    setWidgetInFocus(isWidgetBeingManaged(present) ? present : focused.data());
    if (m_focused != focused)
        m_navigation = true;
}

void FocusSweepManager::adoptArea(QWidget& area)
{
    std::vector<QWidget*> controls = FocusNeighbour::controlsOf(area);
    adoptLinearFocusSweep(controls, Qt::Horizontal);
    m_area = &area;
}

void FocusSweepManager::refreshArea()
{
    if (m_area)
        adoptArea(*m_area);
}

void FocusSweepManager::setLinearSubFocusSweep(const std::vector<QWidget*>& controls)
{
    if (validateSweep(controls))
        m_linearSubSweep.addSweep(controls);
}

void FocusSweepManager::setNonLinearFocusSweep(const std::vector<QWidget*>& controls)
{
    if (validateSweep(controls))
        m_nonLinearSweep.addSweep(controls);
}

bool FocusSweepManager::validateSweep(const std::vector<QWidget*>& controls) const
{
    SweepWidgetStore seen;
    for (QWidget* const control : controls) {
        if (!seen.validateForWidget(control) || !isWidgetInCompleteLinearSweep(control))
            return false;
        seen.addSweep({control});
    }
    return !controls.empty();
}

void FocusSweepManager::clear()
{
    m_sweep.clear();
    m_linearSubSweep.clear();
    m_nonLinearSweep.clear();
    m_area.clear();
    m_focused.clear();
    m_index = 0;
    m_navigation = false;
}

/// Controls may die at any time.
std::vector<QWidget*> FocusSweepManager::getCompleteLinearSweep() const
{
    std::vector<QWidget*> sweep;
    for (const QPointer<QWidget>& control : m_sweep) {
        if (control)
            sweep.push_back(control);
    }
    return sweep;
}

bool FocusSweepManager::isWidgetInCompleteLinearSweep(const QWidget* widget) const
{
    return widget && std::any_of(m_sweep.begin(), m_sweep.end(), [widget](const QPointer<QWidget>& control) {
               return control == widget;
           });
}

QWidget* FocusSweepManager::managedOwner(const QWidget* widget) const
{
    for (const QPointer<QWidget>& control : m_sweep) {
        if (control && widget && (control == widget || control->isAncestorOf(widget)))
            return control;
    }
    return nullptr;
}

// --- Moving the focus

int FocusSweepManager::shiftSweepIndex(Shift shift, int size, int index) const
{
    switch (shift) {
    case Shift::Decrement:
        return index - 1 >= 0 ? index - 1 : m_wrapAround ? size - 1 : 0;
    case Shift::Increment:
        return index + 1 < size ? index + 1 : m_wrapAround ? 0 : size - 1;
    }
    return index;
}

/// The first control at @p start or further on that can take the focus; null when the search ends where it
/// stands still or comes back to @p from (-1: nowhere).
QWidget* FocusSweepManager::nextUsable(const std::vector<QWidget*>& sweep, Shift shift, int start,
                                       int from) const
{
    const int size = static_cast<int>(sweep.size());
    int index = start;
    for (int tried = 0; tried < size && index != from; ++tried) {
        QWidget* const candidate = sweep[static_cast<std::size_t>(index)];
        if (canTakeFocus(candidate))
            return candidate;
        const int next = shiftSweepIndex(shift, size, index);
        if (next == index)
            break;
        index = next;
    }
    return nullptr;
}

void FocusSweepManager::completeLinearSweepShift(Shift shift)
{
    const std::vector<QWidget*> sweep = getCompleteLinearSweep();
    if (!m_navigation || isKeyboardVisible() || sweep.empty())
        return;
    const int size = static_cast<int>(sweep.size());
    const int from = m_focused ? std::clamp(m_index, 0, size - 1) : -1;
    const int start = m_focused ? shiftSweepIndex(shift, size, from) : 0;
    if (QWidget* const next = nextUsable(sweep, shift, start, from))
        setNewFocusWidget(next);
}

void FocusSweepManager::linearShift(Shift shift, bool useSubSweep)
{
    if (!useSubSweep || m_linearSubSweep.isEmpty()) {
        completeLinearSweepShift(shift);
        return;
    }
    const QPointer<QWidget> before = m_focused;
    const int indexBefore = m_index;
    doShift(shift, m_linearSubSweep);
    const bool moved = m_focused != before && m_index != indexBefore;
    if (m_wrapAround && before && !moved)
        completeLinearSweepShift(shift);
}

void FocusSweepManager::doShift(Shift shift, const SweepWidgetStore& store)
{
    if (!m_navigation || getCompleteLinearSweepSize() == 0 || store.isEmpty() || isKeyboardVisible())
        return;
    if (m_focused) {
        shiftWidgetInFocusIfValidForSweepWidgetStore(shift, store);
    } else {
        m_index = 0;
        completeLinearSweepShift(shift);
    }
}

void FocusSweepManager::shiftWidgetInFocusIfValidForSweepWidgetStore(Shift shift,
                                                                     const SweepWidgetStore& store)
{
    const int group = store.groupOf(m_focused);
    if (group < 0)
        return;
    const std::vector<QWidget*> widgets = store.widgetsOf(group);
    const auto at = std::find(widgets.begin(), widgets.end(), m_focused.data());
    const int from = static_cast<int>(at - widgets.begin());
    const int start = shiftSweepIndex(shift, static_cast<int>(widgets.size()), from);
    if (QWidget* const next = nextUsable(widgets, shift, start, from))
        setNewFocusWidget(next);
}

void FocusSweepManager::setWidgetInFocus(const QWidget* widget)
{
    QWidget* const owner = managedOwner(widget);
    if (!owner)
        return;
    const std::vector<QWidget*> sweep = getCompleteLinearSweep();
    m_index = static_cast<int>(std::find(sweep.begin(), sweep.end(), owner) - sweep.begin());
    if (owner == m_focused)
        return;
    m_focused = owner;
    emit focusWidgetChanged(owner);
}

void FocusSweepManager::setNewFocusWidget(QWidget* widget)
{
    if (!isWidgetInCompleteLinearSweep(widget))
        return;
    setWidgetInFocus(widget);
    // Both let styles draw the ring.
    widget->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    widget->setFocus(Qt::TabFocusReason);
    widget->update();
    for (QWidget* around = widget->parentWidget(); around; around = around->parentWidget()) {
        if (auto* const scroll = qobject_cast<QScrollArea*>(around))
            scroll->ensureWidgetVisible(widget);
    }
}

void FocusSweepManager::clearFocusedWidget()
{
    if (m_focused)
        m_focused->clearFocus();
    m_focused.clear();
    m_index = 0;
    m_navigation = true;
}

// --- Keys and knob

void FocusSweepManager::setAllowForNewNavigationEvents(bool allow)
{
    m_navigation = allow;
}

void FocusSweepManager::arrowPressed(Qt::Key arrow)
{
    if (followsNeighbours()) {
        shiftToNeighbour(arrow);
        return;
    }
    if (!m_orientation)
        return;
    const bool isHorizontal = arrow == Qt::Key_Left || arrow == Qt::Key_Right;
    const bool isForward = arrow == Qt::Key_Right || arrow == Qt::Key_Down;
    const Shift shift = isForward ? Shift::Increment : Shift::Decrement;
    if (m_orientation.testFlag(isHorizontal ? Qt::Horizontal : Qt::Vertical))
        linearShift(shift, true);
    else
        doShift(shift, m_nonLinearSweep);
}

bool FocusSweepManager::followsNeighbours() const
{
    return m_area && m_linearSubSweep.isEmpty() && m_nonLinearSweep.isEmpty();
}

void FocusSweepManager::shiftToNeighbour(Qt::Key arrow)
{
    if (!m_focused)
        completeLinearSweepShift(Shift::Increment);
    else if (m_navigation && !isKeyboardVisible())
        setNewFocusWidget(FocusNeighbour::of(*m_focused, getCompleteLinearSweep(), arrow));
}

void FocusSweepManager::upPressed()
{
    arrowPressed(Qt::Key_Up);
}

void FocusSweepManager::downPressed()
{
    arrowPressed(Qt::Key_Down);
}

void FocusSweepManager::leftPressed()
{
    arrowPressed(Qt::Key_Left);
}

void FocusSweepManager::rightPressed()
{
    arrowPressed(Qt::Key_Right);
}

void FocusSweepManager::shaftTurned(bool clockwise)
{
    if (m_navigation)
        completeLinearSweepShift(clockwise ? Shift::Increment : Shift::Decrement);
    else if (m_focused)
        KnobTurn::apply(*m_focused, clockwise);
}

void FocusSweepManager::okPressed()
{
    if (!m_okAllowed || !m_focused || !canTakeFocus(m_focused))
        return;
    if (!handleOkForSpecialWidgetTypes(m_focused))
        toggleFocusWidgetSelection();
}

/// What acts at once has nothing to edit.
bool FocusSweepManager::handleOkForSpecialWidgetTypes(QWidget* widget)
{
    auto* const action = qobject_cast<TouchAction*>(widget);
    QWidget* const control = action && action->control() ? action->control() : widget;
    if (auto* const button = qobject_cast<QAbstractButton*>(control)) {
        button->click();
        return true;
    }
    return false;
}

void FocusSweepManager::selectFocusWidget()
{
    if (!m_focused)
        return;
    m_navigation = false;
    m_focused->update();
}

void FocusSweepManager::deselectFocusWidget()
{
    if (m_navigation)
        return;
    m_navigation = true;
    if (m_focused)
        m_focused->update();
    emit focusWidgetDeselected();
}

void FocusSweepManager::toggleFocusWidgetSelection()
{
    if (m_navigation)
        selectFocusWidget();
    else
        deselectFocusWidget();
}

bool FocusSweepManager::isKeyboardVisible() const
{
    return QGuiApplication::inputMethod()->isVisible();
}

// --- Focus that comes by other ways

bool FocusSweepManager::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        noteFocusIn(static_cast<QWidget*>(watched), static_cast<QFocusEvent*>(event)->reason());
    else if (event->type() == QEvent::MouseButtonPress)
        noteFocusIn(static_cast<QWidget*>(watched), Qt::MouseFocusReason); // it may have the focus already
    return QObject::eventFilter(watched, event);
}

void FocusSweepManager::noteFocusIn(QWidget* widget, Qt::FocusReason reason)
{
    setWidgetInFocus(widget);
    if (reason == Qt::MouseFocusReason && isEditedByTouch(widget))
        selectFocusWidget();
    else if (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason)
        deselectFocusWidget();
}
