#pragma once

#include <QImage>
#include <QRect>

/// The row with the most light in a column of a waveform's cell, from the cell's top; -1 when all is dark.
inline int brightestRow(const QImage& image, const QRect& cell, int column)
{
    int best = -1;
    int most = 0;
    for (int row = 0; row < cell.height(); ++row) {
        const int light = qAlpha(image.pixel(cell.x() + column, cell.y() + row));
        if (light > most) {
            most = light;
            best = row;
        }
    }
    return best;
}
