#include "gui/control/WzMenu.h"

#include "gui/control/FocusSweepManager.h"
#include "gui/style/Fonts.h"

#include <QKeyEvent>
#include <QWidgetAction>

WzMenu::WzMenu(QWidget* parent)
    : WzMenu(QString(), parent)
{
}

WzMenu::WzMenu(const QString& title, QWidget* parent)
    : QMenu(title, parent)
    , m_sweep(new FocusSweepManager(this))
{
    setFont(Fonts::ofPixels(Fonts::kBodyPixels));
}

QAction* WzMenu::addRow(QWidget* row, const QString& text)
{
    auto* const action = new QWidgetAction(this);
    action->setText(text);
    action->setDefaultWidget(row);
    addAction(action);
    std::vector<QWidget*> rows = m_sweep->getCompleteLinearSweep();
    rows.push_back(row);
    m_sweep->adoptLinearFocusSweep(rows, Qt::Vertical);
    watch(row);
    return action;
}

void WzMenu::watch(QWidget* widget)
{
    widget->installEventFilter(this);
    const auto children = widget->findChildren<QWidget*>();
    for (QWidget* const child : children)
        child->installEventFilter(this);
}

/// A turn of the knob is a step in the menu.
void WzMenu::keyPressEvent(QKeyEvent* event)
{
    const bool forward = event->key() == Qt::Key_PageUp;
    if (!forward && event->key() != Qt::Key_PageDown) {
        QMenu::keyPressEvent(event);
        return;
    }
    QKeyEvent step(QEvent::KeyPress, forward ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
    QMenu::keyPressEvent(&step);
}

bool WzMenu::eventFilter(QObject* watched, QEvent* event)
{
    return (event->type() == QEvent::KeyPress && filterKey(*static_cast<QKeyEvent*>(event)))
        || QMenu::eventFilter(watched, event);
}

/// Before the control gets it: while it is not being edited, only what moves along its row is its own.
bool WzMenu::filterKey(QKeyEvent& event)
{
    const bool editing = m_sweep->isFocusWidgetSelected();
    switch (event.key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (editing)
            m_sweep->shaftTurned(event.key() == Qt::Key_PageUp);
        else
            keyPressEvent(&event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_sweep->okPressed();
        return true;
    case Qt::Key_Escape:
        if (editing)
            m_sweep->deselectFocusWidget();
        else
            keyPressEvent(&event);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!editing)
            keyPressEvent(&event);
        return !editing;
    default:
        return false;
    }
}
