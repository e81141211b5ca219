#include "instruments/waveform/WaveformCursorPainter.h"

#include "gui/style/Fonts.h"
#include "instruments/waveform/WaveformColours.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace {

constexpr int kHandleOffset = 40; ///< of both handles from the middle, so that neither covers the other
constexpr int kMargin = 12;
constexpr int kSwatch = 18;
constexpr int kSwatchGap = 8;
constexpr int kColumnGap = 20;

constexpr std::array kCursors{WaveformCursorPainter::Cursor::Reference, WaveformCursorPainter::Cursor::Delta};

QRgb colourOf(WaveformCursorPainter::Cursor cursor)
{
    return cursor == WaveformCursorPainter::Cursor::Reference ? WaveformColours::kReferenceCursor
                                                              : WaveformColours::kDeltaCursor;
}

} // namespace

WaveformCursorPainter::Table WaveformCursorPainter::tableFor(Detail detail)
{
    switch (detail) {
    case Detail::Small:
        return {Fonts::kLabelPixels, 20, 0, 6, 40};
    case Detail::Medium:
        return {Fonts::kTitlePixels, 26, 22, 10, 72};
    case Detail::Full:
        break;
    }
    return {Fonts::kBodyPixels, 36, 30, 16, 72};
}

WaveformCursorPainter::WaveformCursorPainter(const WaveformDisplay::WaveformGeometry& geometry,
                                             std::vector<QRect> cells, const MeasurementCursors& cursors)
    : m_geometry(geometry)
    , m_cells(std::move(cells))
    , m_cursors(cursors)
    , m_isSmall(geometry.detail() == WaveformDisplay::WaveformGeometry::Detail::Small)
    , m_table(tableFor(geometry.detail()))
{
}

QRect WaveformCursorPainter::wholePicture() const
{
    return std::accumulate(m_cells.begin(), m_cells.end(), QRect(),
                           [](const QRect& whole, const QRect& cell) { return whole | cell; });
}

/// One pixel wide; none where the position is out of view.
std::vector<QRect> WaveformCursorPainter::linesOf(Cursor cursor) const
{
    std::vector<QRect> lines;
    const int position = m_cursors.position(m_cursors.axis(), cursor);
    const QRect whole = wholePicture();
    for (const QRect& cell : m_cells) {
        QRect line;
        if (m_cursors.axis() == Axis::Y) {
            const int row = m_geometry.row(position * 0.001);
            if (row >= 0 && row < cell.height())
                line = QRect(whole.left(), cell.top() + row, whole.width(), 1);
        } else {
            const int column =
                std::min(m_geometry.column(position * 0.00001),
                         position == MeasurementCursors::most(Axis::X) ? cell.width() - 1 : cell.width());
            if (column >= 0 && column < cell.width())
                line = QRect(cell.left() + column, cell.top(), 1, cell.height());
        }
        if (!line.isEmpty() && std::find(lines.begin(), lines.end(), line) == lines.end())
            lines.push_back(line);
    }
    return lines;
}

/// On the line in the middle, a little to one side.
QPoint WaveformCursorPainter::handleOf(Cursor cursor) const
{
    const auto lines = linesOf(cursor);
    const QRect line = lines[lines.size() / 2];
    const int offset = cursor == Cursor::Reference ? -kHandleOffset : kHandleOffset;
    return m_cursors.axis() == Axis::Y ? line.center() + QPoint(offset, 0)
                                       : line.center() + QPoint(0, offset);
}

bool WaveformCursorPainter::isHandleOf(Cursor cursor, QPoint position) const
{
    const QPoint toHandle = position - handleOf(cursor);
    return QPoint::dotProduct(toHandle, toHandle) <= kHandleReach * kHandleReach;
}

bool WaveformCursorPainter::isHandle(QPoint position) const
{
    return std::any_of(kCursors.begin(), kCursors.end(), [&](Cursor cursor) {
        return m_cursors.isShown(cursor) && !linesOf(cursor).empty() && isHandleOf(cursor, position);
    });
}

std::optional<WaveformCursorPainter::Cursor> WaveformCursorPainter::cursorAt(QPoint position) const
{
    std::optional<Cursor> nearest;
    int nearestDistance = kLineReach + 1;
    for (const Cursor cursor : kCursors) {
        const auto lines = linesOf(cursor);
        if (!m_cursors.isShown(cursor) || lines.empty())
            continue;
        if (isHandleOf(cursor, position))
            return cursor;
        for (const QRect& line : lines) {
            const int distance = m_cursors.axis() == Axis::Y ? std::abs(position.y() - line.top())
                                                             : std::abs(position.x() - line.left());
            if (distance < nearestDistance) {
                nearestDistance = distance;
                nearest = cursor;
            }
        }
    }
    return nearest;
}

void WaveformCursorPainter::paint(QPainter& painter, Cursor active, const QColor& focus) const
{
    const bool isLevel = m_cursors.axis() == Axis::Y;
    for (const Cursor cursor : kCursors) {
        const auto lines = linesOf(cursor);
        if (!m_cursors.isShown(cursor) || lines.empty())
            continue;
        const QColor colour(colourOf(cursor));
        QColor glow = colour;
        glow.setAlphaF(0.4);
        for (const QRect& line : lines) {
            painter.fillRect(isLevel ? line.adjusted(0, -1, 0, 1) : line.adjusted(-1, 0, 1, 0), glow);
            painter.fillRect(line, colour);
        }
        paintHandle(painter, handleOf(cursor), colour, cursor == active, focus);
    }
}

void WaveformCursorPainter::paintHandle(QPainter& painter, QPoint centre, const QColor& colour, bool isActive,
                                        const QColor& focus) const
{
    const double radius = m_isSmall ? 16.0 : 27.0;
    const double size = radius / 27.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(centre.x() + 0.5, centre.y() + 0.5);
    painter.setPen(QPen(colour, isActive ? 3.0 : 2.0));
    painter.setBrush(QColor(0, 0, 0, 179));
    painter.drawEllipse(QPointF(0, 0), radius, radius);
    if (isActive && focus.isValid()) {
        painter.setPen(QPen(focus, 2.0));
        painter.drawEllipse(QPointF(0, 0), radius + 4.0, radius + 4.0);
    }
    painter.setPen(QPen(colour, 2.5 * size, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    if (m_cursors.axis() == Axis::X)
        painter.rotate(90);
    for (const double direction : {-1.0, 1.0}) {
        const QPointF chevron[] = {{-8.0 * size, direction * 7.0 * size},
                                   {0.0, direction * 15.0 * size},
                                   {8.0 * size, direction * 7.0 * size}};
        painter.drawPolyline(chevron, 3);
    }
    painter.restore();
}

int WaveformCursorPainter::Columns::width() const
{
    return std::accumulate(values.begin(), values.end(), kSwatch + kSwatchGap + name,
                           [](int sum, int column) { return sum + kColumnGap + column; });
}

WaveformCursorPainter::Columns WaveformCursorPainter::columnsOf(const CursorReadOut& readOut) const
{
    const QFontMetrics figures(Fonts::ofPixels(m_table.fontPixels));
    const QFontMetrics headings(Fonts::ofPixels(Fonts::kLabelPixels));
    Columns columns;
    for (const QString& heading : readOut.headings)
        columns.values.push_back(headings.horizontalAdvance(heading));
    for (const auto& row : readOut.rows) {
        columns.name = std::max(columns.name, figures.horizontalAdvance(row.name));
        for (int i = 0; i < row.values.size(); ++i) {
            int& width = columns.values[static_cast<std::size_t>(i)];
            width = std::max(width, figures.horizontalAdvance(row.values.at(i)));
        }
    }
    // What is read does not move its neighbours when it has a digit more.
    for (int& width : columns.values)
        width = (width + 23) / 24 * 24;
    return columns;
}

QRect WaveformCursorPainter::readOutRect(const CursorReadOut& readOut, Qt::Corner corner,
                                         std::optional<QPoint> finger) const
{
    if (readOut.rows.empty() || m_cells.empty())
        return {};
    const QSize size(columnsOf(readOut).width() + 2 * m_table.padding,
                     static_cast<int>(readOut.rows.size()) * m_table.rowHeight + m_table.headingHeight
                         + m_table.padding / 2);
    const QRect room = wholePicture().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    QRect place(room.topLeft(), size);
    if (finger)
        return placeBeside(*finger, size, room, m_table.fingerDistance);
    // Another corner where a handle would be covered in the chosen one.
    for (const Qt::Corner tried :
         {corner, Qt::BottomLeftCorner, Qt::TopLeftCorner, Qt::TopRightCorner, Qt::BottomRightCorner}) {
        const bool isRight = tried == Qt::TopRightCorner || tried == Qt::BottomRightCorner;
        const bool isBottom = tried == Qt::BottomLeftCorner || tried == Qt::BottomRightCorner;
        place.moveLeft(isRight ? room.right() + 1 - size.width() : room.left());
        place.moveTop(isBottom ? room.bottom() + 1 - size.height() : room.top());
        if (!coversHandle(place))
            return place;
    }
    return place;
}

/// At its right or left, else above or below: wherever it fits first.
QRect WaveformCursorPainter::placeBeside(QPoint finger, QSize size, const QRect& room, int distance)
{
    const QPoint lowest = room.bottomRight() + QPoint(1 - size.width(), 1 - size.height());
    const int x = std::clamp(finger.x() - size.width() / 2, room.left(), std::max(room.left(), lowest.x()));
    const int y = std::clamp(finger.y() - size.height() / 2, room.top(), std::max(room.top(), lowest.y()));
    const QRect right({finger.x() + distance, y}, size);
    const QRect left({finger.x() - distance - size.width(), y}, size);
    const QRect above({x, finger.y() - distance - size.height()}, size);
    const QRect below({x, finger.y() + distance}, size);
    for (const QRect& place : {right, left, above}) {
        if (room.contains(place))
            return place;
    }
    return below;
}

bool WaveformCursorPainter::coversHandle(const QRect& place) const
{
    const QPoint reach(kHandleReach, kHandleReach);
    return std::any_of(kCursors.begin(), kCursors.end(), [&](Cursor cursor) {
        if (!m_cursors.isShown(cursor) || linesOf(cursor).empty())
            return false;
        const QPoint handle = handleOf(cursor);
        return place.intersects(QRect(handle - reach, handle + reach));
    });
}

void WaveformCursorPainter::paintReadOut(QPainter& painter, const WzPalette& palette,
                                         const CursorReadOut& readOut, const QRect& place) const
{
    if (place.isEmpty())
        return;
    const int padding = m_table.padding;
    const int rowHeight = m_table.rowHeight;
    const Columns columns = columnsOf(readOut);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette.colour(ColourRole::Border));
    painter.setBrush(QColor::fromRgba(WaveformColours::kReadOutBackground));
    painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 3.5, 3.5);
    const auto paintCells = [&](const QStringList& texts, int top, int height) {
        int right = place.left() + padding + kSwatch + kSwatchGap + columns.name;
        for (int i = 0; i < texts.size(); ++i) {
            const int width = columns.values[static_cast<std::size_t>(i)];
            right += kColumnGap + width;
            painter.drawText(QRect(right - width, top, width, height), Qt::AlignRight | Qt::AlignVCenter,
                             texts.at(i));
        }
    };
    int top = place.top() + padding / 4;
    if (m_table.headingHeight > 0) {
        painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
        painter.setPen(palette.colour(ColourRole::InstrumentSecondaryText));
        paintCells(readOut.headings, top, m_table.headingHeight);
        top += m_table.headingHeight;
    }
    painter.setFont(Fonts::ofPixels(m_table.fontPixels));
    for (const auto& row : readOut.rows) {
        const bool isCursor = qAlpha(row.colour) > 0;
        if (isCursor)
            painter.fillRect(place.left() + padding, top + rowHeight / 2 - 2, kSwatch, 4, QColor(row.colour));
        else
            painter.fillRect(place.left() + padding / 2, top, place.width() - padding, 1,
                             palette.colour(ColourRole::Border));
        painter.setPen(isCursor ? QColor(row.colour) : palette.colour(ColourRole::InstrumentText));
        painter.drawText(QRect(place.left() + padding + kSwatch + kSwatchGap, top, columns.name, rowHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, row.name);
        painter.setPen(palette.colour(ColourRole::InstrumentText));
        paintCells(row.values, top, rowHeight);
        top += rowHeight;
    }
    painter.restore();
}
