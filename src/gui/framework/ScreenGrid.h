#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <map>
#include <utility>
#include <vector>

/// The grid of four by four cells over the instrument area, and the rules by which windows find their place
/// on it. Rectangles are in pixels of the area.
///
/// Cells are numbered by quadrant: 0 to 3 top left, 4 to 7 top right, 8 to 11 bottom left, 12 to 15 bottom
/// right, and within a quadrant in the same order.
namespace ScreenGrid {

inline constexpr int kColumns = 4;
inline constexpr int kRows = 4;
inline constexpr int kCells = kColumns * kRows;

using CellRects = std::map<int, QRect>;

/// The cells of an area of that size. What four columns or rows leave over belongs to no cell.
CellRects screenSedecimantsOf(const QSize& area);

/// The cells that no used rectangle touches, in ascending order.
std::vector<int> findFreeSedecimants(const CellRects& cells, const std::vector<QRect>& used);

/// Free quadrants, by their first cell, and free single cells elsewhere.
CellRects findFreeAreas(const CellRects& cells, const std::vector<QRect>& used);

/// Where a new window of the size of @p requested goes; an empty rectangle when there is no room. It is never
/// put at @p lastPosition, except where it asked to be.
QRect getPositionForNewWindow(const CellRects& cells, const QRect& requested, const CellRects& freeAreas,
                              const QPoint& lastPosition, const QRect& area);

/// @p value at the nearest multiple of @p step; half-way goes down. A step below 1 leaves it.
int snap(int value, int step);
std::pair<int, int> snapPair(const std::pair<int, int>& values, const QSize& steps);
QPoint snapPoint(const QPoint& point, const QSize& steps);
QSize snapSize(const QSize& size, const QSize& steps);
QRect snapRect(const QRect& rect, const QSize& steps);

/// Moved into @p area, and shrunk to it where it is larger.
QRect constrainedTo(const QRect& area, QRect rect);
/// The same, then snapped.
QRect getSnappedRectConstrainedToMdiArea(const QRect& rect, const QRect& area, const QSize& steps);

} // namespace ScreenGrid
