#include "gui/shell/HoldButton.h"

#include <QContextMenuEvent>
#include <QMouseEvent>

HoldButton::HoldButton(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

bool HoldButton::showsFocus() const
{
    return hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void HoldButton::mousePressEvent(QMouseEvent* event)
{
    m_sincePress.start();
    QAbstractButton::mousePressEvent(event);
}

void HoldButton::mouseReleaseEvent(QMouseEvent* event)
{
    const bool wasHeld = isDown() && m_sincePress.isValid() && m_sincePress.elapsed() >= kHoldMs;
    m_sincePress.invalidate();
    if (!wasHeld || event->button() != Qt::LeftButton) {
        QAbstractButton::mouseReleaseEvent(event);
        return;
    }
    setDown(false);
    emit contextMenuWanted(event->globalPos());
}

void HoldButton::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    emit contextMenuWanted(byKey ? mapToGlobal(rect().center()) : event->globalPos());
}
