#pragma once

#include "gui/style/WzPalette.h"
#include "instruments/waveform/HeldTrace.h"

#include <QPixmap>

class QPainter;

/// Draws what of a waveform's graticule stays the same from picture to picture: the lines of the cells, what
/// the signal is, and a reference trace.
class WaveformGraticulePainter {
public:
    /// @p picture is where the picture stands.
    WaveformGraticulePainter(const WaveformDisplay& display, const WzPalette& palette, QPoint picture);

    QPixmap render(QSize size, const HeldTrace& referenceTrace, qreal devicePixelRatio) const;

private:
    using Detail = WaveformDisplay::WaveformGeometry::Detail;

    void paintCell(QPainter& painter, int cell) const;
    void paintVerticals(QPainter& painter, const QRect& cell) const;
    void paintLevels(QPainter& painter, const QRect& cell, const WaveformScale& scale) const;
    void paintTicks(QPainter& painter, const QRect& cell, const WaveformScale& scale) const;
    void paintToleranceLimits(QPainter& painter, const QRect& cell, bool hasLabel) const;
    void paintLetters(QPainter& painter, const QRect& cell, int index) const;
    void paintNotes(QPainter& painter, const QRect& cell, int index) const;
    void paintInnerScale(QPainter& painter) const;
    void paintSignal(QPainter& painter) const;
    void paintShortSignal(QPainter& painter) const;

    QRect cellAt(int index) const;
    /// -1 when all show Cb or Cr.
    int lastCellOfLevels() const;
    QRect rowOfWords(const QRect& cell, int height) const;
    int y(const QRect& cell, double percent) const { return cell.top() + m_geometry.row(percent); }
    QColor colour(ColourRole role) const { return m_palette.colour(role); }

    const WaveformDisplay& m_display;
    const WzPalette& m_palette;
    const QPoint m_picture;
    const WaveformDisplay::WaveformGeometry m_geometry;
};
