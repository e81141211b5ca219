#pragma once

#include "server/sources/CodeValues.h"

#include <array>
#include <vector>

namespace Velmora::Server {

/// The colours of bars from the left, each component on or off; black, which ends some of them, left out.
inline constexpr std::array kBarColours{Rgb{1, 1, 1}, Rgb{1, 1, 0}, Rgb{0, 1, 1}, Rgb{0, 1, 0},
                                        Rgb{1, 0, 1}, Rgb{1, 0, 0}, Rgb{0, 0, 1}};

inline Rgb scaled(const Rgb& rgb, double level)
{
    return {rgb[0] * level, rgb[1] * level, rgb[2] * level};
}

} // namespace Velmora::Server
