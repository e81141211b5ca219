#pragma once

#include "gui/style/WzPalette.h"
#include "instruments/waveform/CursorReadOut.h"
#include "instruments/waveform/WaveformDisplay.h"

#include <optional>

class QPainter;

/// Where the measurement cursors of a waveform stand on the screen, and how they look.
class WaveformCursorPainter {
public:
    using Axis = MeasurementCursors::Axis;
    using Cursor = MeasurementCursors::Cursor;

    /// A finger needs that much.
    static constexpr int kHandleReach = 28;
    static constexpr int kLineReach = 14;

    /// @p cells are those of the waveform on the screen.
    WaveformCursorPainter(const WaveformDisplay::WaveformGeometry& geometry, std::vector<QRect> cells,
                          const MeasurementCursors& cursors);

    /// The cursor that a press at @p position takes hold of.
    std::optional<Cursor> cursorAt(QPoint position) const;
    /// Whether the round handle of one is there.
    bool isHandle(QPoint position) const;
    /// The handle of the active one is ringed by @p focus, unless that is no colour.
    void paint(QPainter& painter, Cursor active, const QColor& focus) const;

    /// The table of figures: in a corner, or beside a finger at @p finger. Neither covers a handle where that
    /// can be helped.
    QRect readOutRect(const CursorReadOut& readOut, Qt::Corner corner, std::optional<QPoint> finger) const;
    void paintReadOut(QPainter& painter, const WzPalette& palette, const CursorReadOut& readOut,
                      const QRect& place) const;
    /// How many units there is room for.
    int mostColumns() const { return m_isSmall ? 1 : 3; }

private:
    using Detail = WaveformDisplay::WaveformGeometry::Detail;
    /// The measures of the figures.
    struct Table {
        int fontPixels;
        int rowHeight;
        int headingHeight; ///< 0: without headings
        int padding;
        int fingerDistance; ///< from the middle of a finger
    };
    static Table tableFor(Detail detail);
    struct Columns {
        int name = 0;
        std::vector<int> values;
        int width() const;
    };

    std::vector<QRect> linesOf(Cursor cursor) const;
    QPoint handleOf(Cursor cursor) const;
    bool isHandleOf(Cursor cursor, QPoint position) const;
    void paintHandle(QPainter& painter, QPoint centre, const QColor& colour, bool isActive,
                     const QColor& focus) const;
    Columns columnsOf(const CursorReadOut& readOut) const;
    QRect wholePicture() const;
    static QRect placeBeside(QPoint finger, QSize size, const QRect& room, int distance);
    bool coversHandle(const QRect& place) const;

    const WaveformDisplay::WaveformGeometry& m_geometry;
    const std::vector<QRect> m_cells;
    const MeasurementCursors& m_cursors;
    const bool m_isSmall;
    const Table m_table;
};
