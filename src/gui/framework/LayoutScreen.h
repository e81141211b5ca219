#pragma once

#include "presets/WindowLayoutPreset.h"

#include <QStringList>

#include <functional>
#include <vector>

class WzMdiArea;
class WzSubWindow;

/// Turns the windows of the area into a layout, and a layout into windows.
class LayoutScreen {
public:
    /// Makes the window that an entry of a layout means, and puts it into the area; null when it cannot.
    using MakeWindow = std::function<WzSubWindow*(const WzSubWindowPreset&)>;

    /// A layout from elsewhere may hold more windows than a screen is good for: the rest is left out.
    static constexpr int kMaximumWindows = 64;

    LayoutScreen(WzMdiArea& area, MakeWindow makeWindow);

    /// The windows that nobody has hidden, in the order in which they were made.
    std::vector<WzSubWindow*> windows() const;
    WindowLayoutPreset capture(const QString& name) const;
    /// Windows that the layout shares with the screen stay open: what they receive goes on. Those that cannot
    /// be made, since only another version knows them, stay in what capture() gives.
    void rebuild(const WindowLayoutPreset& layout);
    /// What the layout of now holds and the screen does not show, each title once.
    QStringList leftOutTitles() const;
    void forgetLeftOut() { m_leftOut.clear(); }

private:
    static std::vector<WzSubWindowPreset> presentForm(const WindowLayoutPreset& layout);
    std::vector<int> orderOf(const std::vector<WzSubWindow*>& shown) const;
    void discard(WzSubWindow* window);
    void stack(const std::vector<WzSubWindow*>& windows, const std::vector<int>& order);

    WzMdiArea& m_area;
    const MakeWindow m_makeWindow;
    std::vector<WzSubWindowPreset> m_leftOut;
};
