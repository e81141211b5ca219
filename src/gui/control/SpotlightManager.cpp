#include "gui/control/SpotlightManager.h"

#include "gui/framework/WzSubWindow.h"

SpotlightManager& SpotlightManager::getInstance()
{
    static SpotlightManager manager;
    return manager;
}

void SpotlightManager::setWindowInSpotlight(WzSubWindow* window)
{
    if (window == m_window)
        return;
    m_window = window;
    emit spotlightChanged(window);
}

void SpotlightManager::relinquishWindowSpotlight(const WzSubWindow* window)
{
    if (window && window == m_window)
        setWindowInSpotlight(nullptr);
}
