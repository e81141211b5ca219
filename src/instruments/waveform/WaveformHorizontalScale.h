#pragma once

#include "instruments/waveform/WaveformDisplay.h"

#include <QString>

#include <vector>

/// The positions on the line that are marked: a vertical line through each cell and a label below it.
namespace WaveformHorizontalScale {

struct Mark {
    int column; ///< in a cell
    QString text;
    double position; ///< 0 to 1 is the active line
};

/// From left to right.
std::vector<Mark> marks(const WaveformDisplay& display, const WaveformDisplay::WaveformGeometry& geometry);

} // namespace WaveformHorizontalScale
