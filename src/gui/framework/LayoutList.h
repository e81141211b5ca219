#pragma once

#include "presets/WindowLayoutPreset.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <optional>

/// Which end of the layouts is meant.
enum class LayoutEnd { Start, End, Both };

/// The layouts in display order and which of them is current: the rules of the list, apart from the screen.
/// While there is a layout, the current index is one of the list's.
class LayoutList {
public:
    /// More are not made by swiping.
    static constexpr int kMaximumBySwiping = 16;

    /// A preset from elsewhere may hold more layouts than anybody finds his way in.
    static constexpr std::size_t kMost = 100;

    int count() const { return static_cast<int>(m_layouts.size()); }
    bool isEmpty() const { return m_layouts.empty(); }
    int currentIndex() const { return m_currentIndex; }
    bool isIndex(int index) const { return index >= 0 && index < count(); }
    const WindowLayoutPreset& at(int index) const { return m_layouts[static_cast<std::size_t>(index)]; }
    WindowLayoutPreset* current() { return isEmpty() ? nullptr : &layout(m_currentIndex); }
    const WindowLayoutPreset* current() const { return isEmpty() ? nullptr : &at(m_currentIndex); }
    QStringList names() const;
    const std::deque<WindowLayoutPreset>& layouts() const { return m_layouts; }

    /// Takes another list. A current index that it does not have becomes 0.
    void replace(std::deque<WindowLayoutPreset> layouts);
    /// One empty layout named "Layout 1".
    void reset();

    /// False, and nothing done, when there is no such layout.
    bool setCurrentIndex(int index);
    bool rename(int index, const QString& name);
    /// One place towards the start or the end. The current layout stays the same one.
    bool move(int index, bool earlier);
    /// Puts a copy behind it. The current layout stays the same one.
    bool duplicate(int index);
    void addEmpty(LayoutEnd end, const QString& name);
    /// At that index, or at the end when it lies beyond. Where it came to stand; the current layout stays.
    int insert(int index, WindowLayoutPreset layout);
    /// The current layout stays the same one while it is there; else the one that takes its place becomes
    /// current, or the last.
    bool remove(int index);

    /// Removes a layout at the chosen end or ends that @p isEmpty tells of, while more than one remains, but
    /// not the one at @p spared. True when something was removed.
    bool tidyEnds(LayoutEnd end, const std::function<bool(int)>& isEmpty, std::optional<int> spared = {});

private:
    WindowLayoutPreset& layout(int index) { return m_layouts[static_cast<std::size_t>(index)]; }

    std::deque<WindowLayoutPreset> m_layouts;
    int m_currentIndex = 0;
};
