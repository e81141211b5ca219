#pragma once

#include "types/waveform/WaveformGeometry.h"

#include <QRect>

/// Where the parts of the window stand, in the coordinates of its content. In full-width mode the picture
/// takes the whole width and the scales lie over it.
struct WaveformLayout {
    /// @p origin is where the geometry's content begins in the window's: the frame belongs to the former.
    WaveformLayout(const Velmora::WaveformTypes::WaveformGeometry& geometry, QSize content, QPoint origin,
                   bool isFullWidth);

    QRect graticule; ///< the picture and what stands above it
    QPoint picture; ///< in the graticule
    QRect leftScale; ///< from the top of the graticule
    QRect rightScale;
    QRect horizontalScale; ///< empty where there is no room
};
