#pragma once

#include "types/waveform/WaveformTypes.h"

#include <QString>

/// What the window of the waveform and its graticule call things.
namespace WaveformComponent {

using DisplayMode = Velmora::WaveformTypes::DisplayMode;
using Component = Velmora::WaveformTypes::Component;

enum class MeasurementCursorXScaleMode { Percent, Time, Pixels, Frequency };

enum class MeasurementCursorYScaleMode { Percent, PercentRelative, Millivolts, Hex, Decimal, Nits };

/// "Y", "Cb", "Cr", "Red", "Green", "Blue", "Alpha".
QString nameOf(Component component);
/// The same where there is no room: "R", "G", "B", "A".
QString letterOf(Component component);

} // namespace WaveformComponent
