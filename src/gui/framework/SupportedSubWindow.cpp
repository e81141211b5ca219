#include "gui/framework/SupportedSubWindow.h"

#include "gui/framework/WzSubWindow.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

bool SupportedSubWindow::is(const QString& title, const QString& className, WindowRole windowRole) const
{
    return windowTitle == title && contentClassName == className && role == windowRole;
}

bool SupportedSubWindow::isKindOf(const WzSubWindow& window) const
{
    return is(window.windowTitle(), window.getContentClassName(), window.getWindowRole());
}

WzSubWindow* SupportedSubWindow::create(WzMdiArea& area, int instanceNumber) const
{
    auto window = std::make_unique<WzSubWindow>(area, *this, instanceNumber);
    if (!makeContent || !window->setContent(makeContent(*window))) {
        Velmora::log()->error("Error: the window \"{}\" could not be made", windowTitle);
        return nullptr;
    }
    return window.release();
}
