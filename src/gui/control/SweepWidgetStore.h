#pragma once

#include <QPointer>
#include <QWidget>

#include <vector>

/// Groups of controls, each of which the focus moves along in its own order: the rows of a panel, say.
class SweepWidgetStore {
public:
    using Group = std::vector<QPointer<QWidget>>;

    void addSweep(const std::vector<QWidget*>& group);
    void clear() { m_groups.clear(); }
    bool isEmpty() const { return m_groups.empty(); }
    int groupCount() const { return static_cast<int>(m_groups.size()); }

    bool isWidgetInSweepLookup(const QWidget* widget) const { return groupOf(widget) >= 0; }
    /// False also when there is no such group.
    bool isWidgetInSweepGroupAtIndex(const QWidget* widget, int group) const;
    /// Whether the widget may be added: it is there, and in no group yet.
    bool validateForWidget(const QWidget* widget) const { return widget && !isWidgetInSweepLookup(widget); }

    /// The first group with the widget; -1 when there is none.
    int groupOf(const QWidget* widget) const;
    /// Its controls that still exist.
    std::vector<QWidget*> widgetsOf(int group) const;

private:
    std::vector<Group> m_groups;
};
