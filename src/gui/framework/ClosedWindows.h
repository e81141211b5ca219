#pragma once

#include "presets/WzSubWindowPreset.h"

#include <vector>

class WindowLayoutPreset;
class WzSubWindow;

/// The windows that were closed since a layout came on the screen, as they were last. An instrument that is
/// opened again comes back as it was in this layout: as it was closed, or as it was stored.
class ClosedWindows {
public:
    /// Another layout has come.
    void clear() { m_closed.clear(); }

    /// The layout's entry takes the window's last state over. It goes when the screen is stored, so a copy is
    /// kept.
    void note(const WzSubWindow& window, WindowLayoutPreset& layout);
    /// Gives the content its last state. The layout may be null.
    void loadContent(WzSubWindow& window, const WindowLayoutPreset* layout) const;

private:
    std::vector<WzSubWindowPreset> m_closed;
};
