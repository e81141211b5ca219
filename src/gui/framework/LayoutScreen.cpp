#include "gui/framework/LayoutScreen.h"

#include "gui/framework/LayoutNames.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindow.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <algorithm>
#include <numeric>
#include <utility>

LayoutScreen::LayoutScreen(WzMdiArea& area, MakeWindow makeWindow)
    : m_area(area)
    , m_makeWindow(std::move(makeWindow))
{
}

std::vector<WzSubWindow*> LayoutScreen::windows() const
{
    auto windows = m_area.wzSubWindows();
    // Not whether they are visible: the main window itself may not be shown yet.
    windows.erase(std::remove_if(windows.begin(), windows.end(),
                                 [](const WzSubWindow* window) { return window->isHidden(); }),
                  windows.end());
    return windows;
}

WindowLayoutPreset LayoutScreen::capture(const QString& name) const
{
    WindowLayoutPreset layout;
    layout.setLayoutName(name);
    const auto shown = windows();
    std::vector<WzSubWindowPreset> presets;
    for (const WzSubWindow* const window : shown) {
        presets.push_back(window->getWindowAndWindowContentStatesAsPreset());
        if (window->isSubWindowFullScreen() && window == m_area.activeWzSubWindow())
            presets.back().setWindowFullScreenInFocus(true);
    }
    presets.insert(presets.end(), m_leftOut.begin(), m_leftOut.end());
    layout.setSubWindowPresets(presets);
    layout.setSubWindowOrder(orderOf(shown));
    return layout;
}

/// Windows that were left out lie below those that are shown.
std::vector<int> LayoutScreen::orderOf(const std::vector<WzSubWindow*>& shown) const
{
    std::vector<int> order(m_leftOut.size());
    std::iota(order.begin(), order.end(), static_cast<int>(shown.size()));
    for (const WzSubWindow* const window : m_area.wzSubWindows(QMdiArea::StackingOrder)) {
        const auto found = std::find(shown.begin(), shown.end(), window);
        if (found != shown.end())
            order.push_back(static_cast<int>(found - shown.begin()));
    }
    return order;
}

void LayoutScreen::rebuild(const WindowLayoutPreset& layout)
{
    m_area.cancelDrag();
    m_leftOut.clear();
    const auto presets = presentForm(layout);
    auto remaining = m_area.wzSubWindows();
    std::vector<WzSubWindow*> windows;
    for (const WzSubWindowPreset& preset : presets) {
        const auto match =
            std::find_if(remaining.begin(), remaining.end(),
                         [&preset](const WzSubWindow* window) { return window->isMeantBy(preset); });
        windows.push_back(match == remaining.end() ? nullptr : *match);
        if (match != remaining.end())
            remaining.erase(match);
    }
    for (WzSubWindow* const window : remaining)
        discard(window);
    for (std::size_t i = 0; i < presets.size(); ++i) {
        if (!windows[i])
            windows[i] = m_makeWindow(presets[i]);
        if (!windows[i]) {
            m_leftOut.push_back(presets[i]);
            continue;
        }
        windows[i]->loadWindowStatesFromPreset(presets[i]);
        windows[i]->loadWindowContentStatesFromPreset(presets[i]);
        windows[i]->show();
    }
    stack(windows, layout.getSubWindowOrder());
}

QStringList LayoutScreen::leftOutTitles() const
{
    QStringList titles;
    for (const WzSubWindowPreset& preset : m_leftOut)
        titles << preset.getWindowTitle();
    titles.removeDuplicates();
    return titles;
}

/// The windows of the layout, by the names of now.
std::vector<WzSubWindowPreset> LayoutScreen::presentForm(const WindowLayoutPreset& layout)
{
    auto presets = layout.getSubWindowPresets();
    if (static_cast<int>(presets.size()) > kMaximumWindows) {
        Velmora::log()->warn("Layout \"{}\" holds {} windows: only the first {} are shown",
                             layout.getLayoutName(), presets.size(), kMaximumWindows);
        presets.resize(kMaximumWindows);
    }
    for (WzSubWindowPreset& preset : presets) {
        QString title = preset.getWindowTitle();
        QString contentClass = preset.getWindowContentClassName();
        LayoutNames::migrateOldWindowTitleToNewWindowTitle(title);
        LayoutNames::migrateOldWindowContentClassToNewWindowContentClass(contentClass);
        preset.setWindowTitle(title);
        preset.setWindowContentClassName(contentClass);
    }
    return presets;
}

void LayoutScreen::discard(WzSubWindow* window)
{
    window->hide();
    m_area.removeSubWindow(window);
    window->deleteLater();
}

/// The order goes from the lowest to the highest; entries without a window are passed over.
void LayoutScreen::stack(const std::vector<WzSubWindow*>& windows, const std::vector<int>& order)
{
    WzSubWindow* top = nullptr;
    for (const int index : order) {
        const auto place = static_cast<std::size_t>(index);
        if (place >= windows.size() || !windows[place])
            continue;
        top = windows[place];
        top->raise();
    }
    for (WzSubWindow* const window : windows) {
        if (window && window->isSubWindowFullScreen())
            top = window;
    }
    if (top)
        m_area.setActiveSubWindow(top);
    m_area.updateOverlayZOrder();
}
