#pragma once

/// The ranges of what can be set about a waveform.
namespace Velmora::WaveformTypes::Limits {

struct Range {
    double least;
    double most;
    double step; ///< of controls; any value between is accepted
    double initial;
};

inline constexpr Range kBrightness{0.0, 100.0, 1.0, 50.0}; ///< percent
inline constexpr Range kGamma{0.1, 1.0, 0.05, 0.3};
inline constexpr Range kPersistence{0.0, 5.0, 0.1, 0.0}; ///< seconds, attack as well as decay
inline constexpr Range kVerticalMagnification{1.0, 16.0, 0.5, 1.0};
inline constexpr Range kVerticalPosition{-60.0, 60.0, 1.0, 0.0}; ///< percent of level
inline constexpr Range kHorizontalMagnification{1.0, 32.0, 0.5, 1.0};
inline constexpr Range kHorizontalPosition{0.0, 100.0, 1.0, 0.0}; ///< percent of what is out of sight
inline constexpr Range kGain{0.0, 5.0, 0.05, 1.0};
inline constexpr Range kUserMarker{-8.0, 110.0, 0.1, 0.0}; ///< percent

} // namespace Velmora::WaveformTypes::Limits
