#pragma once

#include "server/sources/VideoFrame.h"

#include <array>
#include <cstdint>

namespace Velmora::Server {

/// A code value for each of the three components, in the order of the planes.
using Colour = std::array<std::uint16_t, 3>;
/// Non-linear R', G', B', 0 to 1 for black to white.
using Rgb = std::array<double, 3>;

/// Turns levels into the code values of a format (BT.601, BT.709, BT.2100): narrow range
/// (219 E' + 16) 2^(n-8) and (224 C' + 128) 2^(n-8), full range (2^n - 1) E', each rounded to the nearest.
class CodeValues {
public:
    explicit CodeValues(const VideoFormat& format);

    int bits() const { return m_bits; }
    /// Of luminance and of R', G', B'.
    std::uint16_t level(double level) const;
    /// Of a colour difference, -0.5 to 0.5.
    std::uint16_t difference(double difference) const;
    /// The level of a code, unrounded: the opposite of level().
    double levelOf(double code) const;
    /// A code that is given in 10 bits, where patterns are laid down so and not by level.
    std::uint16_t fromTenBits(int code) const;
    /// The ends of what a link can carry besides its timing references: 4 and 1019 with 10 bits.
    std::uint16_t lowest() const { return static_cast<std::uint16_t>(1U << (m_bits - 8)); }
    std::uint16_t highest() const { return static_cast<std::uint16_t>((1U << m_bits) - 1 - lowest()); }

    /// In the format's components, by the matrix of its colourimetry.
    Colour colour(const Rgb& rgb) const;
    Colour grey(double greyLevel) const { return greyCode(level(greyLevel)); }
    /// The grey of a luminance code.
    Colour greyCode(std::uint16_t code) const;

private:
    std::uint16_t limited(double code) const;

    int m_bits;
    bool m_isFullRange;
    bool m_isRgb;
    double m_redWeight; ///< of luminance
    double m_blueWeight;
};

} // namespace Velmora::Server
