#include "gui/framework/SpotlightManager.h"

#include "gui/control/FocusSweepManager.h"
#include "gui/framework/WzSubWindow.h"

SpotlightManager::SpotlightManager() = default;
SpotlightManager::~SpotlightManager() = default;

SpotlightManager& SpotlightManager::getInstance()
{
    static SpotlightManager manager;
    return manager;
}

WzSubWindow* SpotlightManager::windowInSpotlight() const
{
    return m_window;
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

FocusSweepManager* SpotlightManager::getCurrentSweepManager() const
{
    return m_currentSweep;
}

void SpotlightManager::setCurrentSweepManager(FocusSweepManager* manager)
{
    m_currentSweep = manager;
}

FocusSweepManager* SpotlightManager::getPreviousSweepManager() const
{
    return m_previousSweep;
}

void SpotlightManager::setPrevSweepManager(FocusSweepManager* manager)
{
    m_previousSweep = manager;
}
