#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/waveform/WaveformTypes.h"

#include <array>

namespace Velmora::Server::ColourMatrix {

/// How a component is made of the three of a picture: the factors of Y, Cb, Cr (or R, G, B when @p fromRgb),
/// each as a share of its own range from 0 to 100 % (Cb and Cr: -50 to +50 %), by ITU-R BT.601, BT.709 or
/// BT.2020 without constant luminance. Colourimetry that is none of these counts as BT.709.
std::array<double, 3> factors(WaveformTypes::Component component, bool fromRgb,
                              Sdi::PayloadId::Colourimetry colourimetry);

} // namespace Velmora::Server::ColourMatrix
