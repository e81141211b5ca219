#include "gui/framework/HelpReach.h"

#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubwindowContent.h"
#include "gui/framework/WzTitleLine.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMouseEvent>

#include <utility>

namespace {

bool isControl(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QAbstractSlider*>(widget)
        || qobject_cast<const QAbstractSpinBox*>(widget) || qobject_cast<const QComboBox*>(widget)
        || qobject_cast<const QLineEdit*>(widget);
}

bool isInReach(const WzSubWindow& window, const QMouseEvent& event)
{
    return window.helpReach().contains(window.mapFromGlobal(event.globalPos()));
}

} // namespace

bool HelpReach::filterMouseEvent(QWidget* receiver, const QMouseEvent& event)
{
    if (event.type() == QEvent::MouseButtonPress) {
        WzSubWindow* const window = WzSubWindow::holding(receiver);
        const bool meant = window && event.button() == Qt::LeftButton && isInReach(*window, event)
            && !isControl(receiver) && !qobject_cast<WzTitleLine*>(receiver);
        m_window = meant ? window : nullptr;
        return meant;
    }
    if (!m_window || event.type() != QEvent::MouseButtonRelease)
        return m_window != nullptr;
    WzSubWindow* const window = std::exchange(m_window, nullptr);
    if (isInReach(*window, event) && window->content())
        window->content()->toggleHelp();
    return true;
}
