#include "gui/framework/ClosedWindows.h"

#include "gui/framework/WzSubWindow.h"

#include "presets/WindowLayoutPreset.h"

#include <algorithm>

namespace {

/// The entry that means the window; the end when there is none.
template<typename Presets>
auto entryOf(const WzSubWindow& window, Presets& presets)
{
    return std::find_if(presets.begin(), presets.end(),
                        [&window](const WzSubWindowPreset& preset) { return window.isMeantBy(preset); });
}

} // namespace

void ClosedWindows::note(const WzSubWindow& window, WindowLayoutPreset& layout)
{
    const WzSubWindowPreset closing = window.getWindowAndWindowContentStatesAsPreset();
    auto presets = layout.getSubWindowPresets();
    const auto stored = entryOf(window, presets);
    if (stored != presets.end()) {
        *stored = closing;
        layout.setSubWindowPresets(presets);
    }
    std::erase_if(m_closed, [&window](const WzSubWindowPreset& preset) { return window.isMeantBy(preset); });
    m_closed.push_back(closing);
}

void ClosedWindows::loadContent(WzSubWindow& window, const WindowLayoutPreset* layout) const
{
    const auto loadFrom = [&window](const std::vector<WzSubWindowPreset>& presets) {
        const auto found = entryOf(window, presets);
        if (found == presets.end())
            return false;
        window.loadWindowContentStatesFromPreset(*found);
        return true;
    };
    if (!loadFrom(m_closed) && layout)
        loadFrom(layout->getSubWindowPresets());
}
