#include "gui/control/KnobTurn.h"

#include "gui/control/ControlTriggers.h"
#include "gui/control/TouchAction.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QCoreApplication>
#include <QPointer>
#include <QWheelEvent>

namespace {

/// A notch of the wheel in the middle of the control, as a mouse on it would send.
void turnWheel(QWidget& control, bool clockwise)
{
    const auto* const scrollArea = qobject_cast<QAbstractScrollArea*>(&control);
    QWidget& widget = scrollArea ? *scrollArea->viewport() : control;
    const QPointF centre = QRectF(widget.rect()).center();
    const bool isPositive = clockwise != (scrollArea != nullptr);
    const QPoint notch(0,
                       isPositive ? QWheelEvent::DefaultDeltasPerStep : -QWheelEvent::DefaultDeltasPerStep);
    QWheelEvent event(centre, widget.mapToGlobal(centre.toPoint()), QPoint(), notch, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

/// The list of a closed combo box changes nothing by itself: the entry that it moves to is the choice.
void turnComboBox(QComboBox& box, bool clockwise)
{
    QAbstractItemView* const list = box.view();
    const QPointer<QComboBox> guard(&box);
    list->setCurrentIndex(box.model()->index(box.currentIndex(), box.modelColumn(), box.rootModelIndex()));
    ControlTriggers::sendKey(list, clockwise ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier, {});
    if (!guard)
        return;
    const int row = list->currentIndex().row();
    if (row >= 0 && row != box.currentIndex()) {
        box.setCurrentIndex(row);
        emit box.activated(row);
    }
}

} // namespace

void KnobTurn::apply(QWidget& control, bool clockwise)
{
    const auto* const action = qobject_cast<TouchAction*>(&control);
    if (auto* const box = qobject_cast<QComboBox*>(action ? action->focusProxy() : &control))
        turnComboBox(*box, clockwise);
    else
        turnWheel(control, clockwise);
}
