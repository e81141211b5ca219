#pragma once

#include "gui/style/WzPalette.h"
#include "instruments/waveform/WaveformDisplay.h"

#include <QRect>

class QPainter;

/// Draws the labels of a scale of levels beside the cells of a waveform, or in one of them.
class WaveformScalePainter {
public:
    enum class Side { Left, Right };

    WaveformScalePainter(QPainter& painter, const WzPalette& palette, const WaveformDisplay& display,
                         const WaveformDisplay::WaveformGeometry& geometry);

    /// The margin at a side; @p pictureTop is where the picture begins in it.
    void paintMargin(Side side, const QRect& margin, int pictureTop) const;
    /// Labels in a cell, at its right edge.
    void paintInCell(WaveformDisplay::Scale scale, const QRect& cell) const;

    static int fontPixels(WaveformDisplay::WaveformGeometry::Detail detail);

private:
    using Scale = WaveformDisplay::Scale;

    void paintLabels(Scale scale, const QRect& place, int cellTop, bool isOverPicture = false) const;
    void paintNitsTicks(Side side, const QRect& margin, int cellTop) const;
    void paintUnit(Scale scale, const QRect& place) const;
    QString unitOf(Scale scale) const;
    bool isInView(int row) const;

    QPainter& m_painter;
    const WzPalette& m_palette;
    const WaveformDisplay& m_display;
    const WaveformDisplay::WaveformGeometry& m_geometry;
};
