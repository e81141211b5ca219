#pragma once

/// What a sub-window is for. The numbers are saved in presets.
enum class WindowRole {
    Instrument = 0, ///< shows a measurement
    Generator = 1, ///< sets up what the instrument sends
    System = 2, ///< shows or sets the instrument itself
};
