#include "gui/control/SweepCollector.h"

#include "gui/control/FocusSweepManager.h"
#include "gui/control/TouchAction.h"

#include <algorithm>

namespace SweepCollector {
namespace {

using Row = std::vector<QWidget*>;

bool isControl(const QWidget& widget)
{
    return qobject_cast<const TouchAction*>(&widget) || (widget.focusPolicy() & Qt::TabFocus) != 0;
}

/// The outermost ones: what a spin box or a view is made of counts as one control.
void collect(const QWidget& parent, std::vector<QWidget*>& controls)
{
    for (QObject* const child : parent.children()) {
        auto* const widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow())
            continue;
        if (isControl(*widget))
            controls.push_back(widget);
        else
            collect(*widget, controls);
    }
}

/// Controls of which each reaches over the middle of the one before stand in one row.
std::vector<Row> rowsOf(const QWidget& area, std::vector<QWidget*> controls)
{
    const auto place = [&area](const QWidget* widget) {
        return QRect(widget->mapTo(&area, QPoint(0, 0)), widget->size());
    };
    std::stable_sort(controls.begin(), controls.end(), [&place](const QWidget* a, const QWidget* b) {
        return place(a).center().y() < place(b).center().y();
    });
    std::vector<Row> rows;
    for (QWidget* const control : controls) {
        const bool sameRow = !rows.empty()
            && place(control).center().y() <= place(rows.back().front()).bottom()
            && place(rows.back().front()).center().y() >= place(control).top();
        if (!sameRow)
            rows.emplace_back();
        rows.back().push_back(control);
    }
    for (Row& row : rows)
        std::stable_sort(row.begin(), row.end(), [&place](const QWidget* a, const QWidget* b) {
            return place(a).left() < place(b).left();
        });
    return rows;
}

} // namespace

void adoptControlsOf(QWidget& area, FocusSweepManager& manager)
{
    std::vector<QWidget*> controls;
    collect(area, controls);
    const std::vector<Row> rows = rowsOf(area, std::move(controls));
    std::vector<QWidget*> sweep;
    std::size_t columns = 0;
    for (const Row& row : rows) {
        sweep.insert(sweep.end(), row.begin(), row.end());
        columns = std::max(columns, row.size());
    }
    manager.adoptLinearFocusSweep(sweep, Qt::Horizontal);
    for (const Row& row : rows)
        manager.setLinearSubFocusSweep(row);
    for (std::size_t column = 0; column < columns && rows.size() > 1; ++column) {
        Row group;
        for (const Row& row : rows)
            group.push_back(row[std::min(column, row.size() - 1)]);
        manager.setNonLinearFocusSweep(group);
    }
}

} // namespace SweepCollector
