#include "gui/framework/ScreenGrid.h"

#include <algorithm>

namespace ScreenGrid {
namespace {

constexpr int kCellsOfQuadrant = 4;

bool touchesNone(const QRect& rect, const std::vector<QRect>& others)
{
    return std::none_of(others.begin(), others.end(),
                        [&rect](const QRect& other) { return rect.intersects(other); });
}

} // namespace

CellRects screenSedecimantsOf(const QSize& area)
{
    const QSize cell(area.width() / kColumns, area.height() / kRows);
    CellRects cells;
    for (int i = 0; i < kCells; ++i) {
        // Two bits choose the quadrant and two the cell in it; the lower of each is the column.
        const int column = (i >> 2 & 1) * 2 + (i & 1);
        const int row = (i >> 3 & 1) * 2 + (i >> 1 & 1);
        cells[i] = QRect(QPoint(column * cell.width(), row * cell.height()), cell);
    }
    return cells;
}

std::vector<int> findFreeSedecimants(const CellRects& cells, const std::vector<QRect>& used)
{
    std::vector<int> free;
    for (const auto& [number, rect] : cells) {
        if (touchesNone(rect, used))
            free.push_back(number);
    }
    return free;
}

CellRects findFreeAreas(const CellRects& cells, const std::vector<QRect>& used)
{
    CellRects areas;
    for (const int number : findFreeSedecimants(cells, used))
        areas[number] = cells.at(number);
    for (int first = 0; first < kCells; first += kCellsOfQuadrant) {
        const auto begin = areas.lower_bound(first);
        const auto end = areas.lower_bound(first + kCellsOfQuadrant);
        if (std::distance(begin, end) != kCellsOfQuadrant)
            continue;
        begin->second = begin->second.united(std::prev(end)->second);
        areas.erase(std::next(begin), end);
    }
    return areas;
}

QRect getPositionForNewWindow(const CellRects& cells, const QRect& requested, const CellRects& freeAreas,
                              const QPoint& lastPosition, const QRect& area)
{
    for (const auto& [number, free] : freeAreas) {
        if (free.contains(requested))
            return requested;
        if (free.size() == requested.size() && free.topLeft() != lastPosition)
            return free;
    }
    for (const auto& [number, free] : freeAreas) {
        const QRect candidate(cells.at(number).topLeft(), requested.size());
        if (candidate.topLeft() != lastPosition && area.contains(candidate))
            return candidate;
    }
    return {};
}

int snap(int value, int step)
{
    if (step < 1)
        return value;
    const int remainder = ((value % step) + step) % step;
    return remainder > step / 2 ? value - remainder + step : value - remainder;
}

std::pair<int, int> snapPair(const std::pair<int, int>& values, const QSize& steps)
{
    return {snap(values.first, steps.width()), snap(values.second, steps.height())};
}

QPoint snapPoint(const QPoint& point, const QSize& steps)
{
    const auto [x, y] = snapPair({point.x(), point.y()}, steps);
    return {x, y};
}

QSize snapSize(const QSize& size, const QSize& steps)
{
    const auto [width, height] = snapPair({size.width(), size.height()}, steps);
    return {width, height};
}

QRect snapRect(const QRect& rect, const QSize& steps)
{
    return {snapPoint(rect.topLeft(), steps), snapSize(rect.size(), steps)};
}

QRect constrainedTo(const QRect& area, QRect rect)
{
    rect.setSize(rect.size().boundedTo(area.size()));
    rect.moveLeft(std::clamp(rect.left(), area.left(), area.right() - rect.width() + 1));
    rect.moveTop(std::clamp(rect.top(), area.top(), area.bottom() - rect.height() + 1));
    return rect;
}

QRect getSnappedRectConstrainedToMdiArea(const QRect& rect, const QRect& area, const QSize& steps)
{
    return snapRect(constrainedTo(area, rect), steps);
}

} // namespace ScreenGrid
