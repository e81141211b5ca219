#include "gui/control/SweepWidgetStore.h"

#include <algorithm>

void SweepWidgetStore::addSweep(const std::vector<QWidget*>& group)
{
    if (!group.empty())
        m_groups.emplace_back(group.begin(), group.end());
}

bool SweepWidgetStore::isWidgetInSweepGroupAtIndex(const QWidget* widget, int group) const
{
    if (!widget || group < 0 || group >= groupCount())
        return false;
    const Group& widgets = m_groups[static_cast<std::size_t>(group)];
    return std::any_of(widgets.begin(), widgets.end(),
                       [widget](const QPointer<QWidget>& entry) { return entry == widget; });
}

int SweepWidgetStore::groupOf(const QWidget* widget) const
{
    for (int i = 0; i < groupCount(); ++i) {
        if (isWidgetInSweepGroupAtIndex(widget, i))
            return i;
    }
    return -1;
}

std::vector<QWidget*> SweepWidgetStore::widgetsOf(int group) const
{
    std::vector<QWidget*> widgets;
    for (const QPointer<QWidget>& entry : m_groups.at(static_cast<std::size_t>(group))) {
        if (entry)
            widgets.push_back(entry);
    }
    return widgets;
}
