#pragma once

#include <array>

/// How users read what can be chosen about a waveform: the place of a text is the value.
namespace Velmora::WaveformTypes::Texts {

inline constexpr std::array kDisplayModes{"YCbCr", "YCbCrA", "RGB",  "GBR",   "YRGB",
                                          "YGBR",  "RGBA",   "GBRA", "Custom"};
inline constexpr std::array kPresentations{"Parade", "Stacked", "Overlay"};
inline constexpr std::array kFilters{"Technical", "Production", "Low Pass", "Raw"};
inline constexpr std::array kColourModes{"Colour", "Highlight", "Monochrome"};
inline constexpr std::array kComponents{"Y", "Cb", "Cr", "Red", "Green", "Blue", "Alpha"};

} // namespace Velmora::WaveformTypes::Texts
