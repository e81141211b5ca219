#include "gui/framework/LayoutList.h"

#include "gui/framework/LayoutNames.h"

#include <algorithm>
#include <utility>

namespace {

WindowLayoutPreset emptyLayout(const QString& name)
{
    WindowLayoutPreset layout;
    layout.setLayoutName(name);
    return layout;
}

} // namespace

QStringList LayoutList::names() const
{
    QStringList names;
    names.reserve(count());
    for (const WindowLayoutPreset& layout : m_layouts)
        names.append(layout.getLayoutName());
    return names;
}

void LayoutList::replace(std::deque<WindowLayoutPreset> layouts)
{
    m_layouts = std::move(layouts);
    if (!isIndex(m_currentIndex))
        m_currentIndex = 0;
}

void LayoutList::reset()
{
    m_layouts.clear();
    addEmpty(LayoutEnd::End, LayoutNames::first());
    m_currentIndex = 0;
}

bool LayoutList::setCurrentIndex(int index)
{
    if (!isIndex(index))
        return false;
    m_currentIndex = index;
    return true;
}

bool LayoutList::rename(int index, const QString& name)
{
    if (!isIndex(index))
        return false;
    layout(index).setLayoutName(name);
    return true;
}

bool LayoutList::move(int index, bool earlier)
{
    const int target = earlier ? index - 1 : index + 1;
    if (!isIndex(index) || !isIndex(target))
        return false;
    std::swap(layout(index), layout(target));
    if (m_currentIndex == index)
        m_currentIndex = target;
    else if (m_currentIndex == target)
        m_currentIndex = index;
    return true;
}

bool LayoutList::duplicate(int index)
{
    if (!isIndex(index))
        return false;
    WindowLayoutPreset copy = at(index);
    copy.setLayoutName(LayoutNames::duplicateName(copy.getLayoutName(), names()));
    insert(index + 1, std::move(copy));
    return true;
}

int LayoutList::insert(int index, WindowLayoutPreset layout)
{
    const int place = std::clamp(index, 0, count());
    m_layouts.insert(m_layouts.begin() + place, std::move(layout));
    if (m_currentIndex >= place && count() > 1)
        ++m_currentIndex;
    return place;
}

void LayoutList::addEmpty(LayoutEnd end, const QString& name)
{
    insert(end == LayoutEnd::Start ? 0 : count(), emptyLayout(name));
}

bool LayoutList::remove(int index)
{
    if (!isIndex(index))
        return false;
    m_layouts.erase(m_layouts.begin() + index);
    if (index < m_currentIndex || !isIndex(m_currentIndex))
        m_currentIndex = std::max(0, m_currentIndex - 1);
    return true;
}

bool LayoutList::tidyEnds(LayoutEnd end, const std::function<bool(int)>& isEmpty, std::optional<int> spared)
{
    const auto mayGo = [&](int index) { return count() > 1 && index != spared && isEmpty(index); };
    bool removed = false;
    // The end first: what is removed there moves no index.
    if (end != LayoutEnd::Start && mayGo(count() - 1))
        removed = remove(count() - 1);
    if (end != LayoutEnd::End && mayGo(0))
        removed = remove(0) || removed;
    return removed;
}
