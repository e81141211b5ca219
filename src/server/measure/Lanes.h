#pragma once

#include "server/sources/AudioBlock.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace Velmora::Server {

/// Four numbers in one vector register, of the width that every processor of interest has (SSE2, NEON); the
/// compilers split wider ones badly. Loops over channels are not left to their vectorisers either: what
/// became of those differed by a factor of ten between compiler options.
using FourLanes = float __attribute__((vector_size(16)));

/// The greater of two numbers; @p b where either is not a number.
inline FourLanes greater(const FourLanes& a, const FourLanes& b)
{
    return a > b ? a : b;
}

inline FourLanes magnitude(const FourLanes& a)
{
    return greater(a, -a);
}

/// @p a where lowest <= deciding <= highest, elsewhere (also where @p deciding is not a number) 0.
inline FourLanes keptWithin(const FourLanes& a, const FourLanes& deciding, float lowest, float highest)
{
    return ((deciding >= lowest) & (deciding <= highest)) ? a : FourLanes{};
}

/// One number per channel, calculated with side by side.
///
/// Left channels fill the first half and right channels the second, so that the two of a pair stand at the
/// same place of their halves.
class Lanes {
public:
    static constexpr std::size_t kWidth = 4;
    static constexpr std::size_t kFours = kAudioChannels / kWidth;
    static constexpr std::size_t laneOf(std::size_t channel)
    {
        return channel / 2 + channel % 2 * kAudioPairs;
    }
    static constexpr std::size_t channelOf(std::size_t lane)
    {
        return lane % kAudioPairs * 2 + lane / kAudioPairs;
    }

    /// All zero.
    Lanes() = default;
    Lanes(const FourLanes& a, const FourLanes& b, const FourLanes& c, const FourLanes& d)
        : m_fours{a, b, c, d}
    {
    }

    /// Lanes 4i to 4i + 3.
    const FourLanes& four(std::size_t i) const { return m_fours[i]; }
    void setFour(std::size_t i, const FourLanes& value) { m_fours[i] = value; }

    std::array<float, kAudioChannels> inLaneOrder() const
    {
        std::array<float, kAudioChannels> values;
        std::memcpy(values.data(), m_fours, sizeof m_fours);
        return values;
    }
    std::array<float, kAudioChannels> inChannelOrder() const
    {
        const auto lanes = inLaneOrder();
        std::array<float, kAudioChannels> values;
        for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
            values[channel] = lanes[laneOf(channel)];
        return values;
    }
    void setChannel(std::size_t channel, float value)
    {
        const auto lane = laneOf(channel);
        m_fours[lane / kWidth][lane % kWidth] = value;
    }

    /// The products of left and right of pair n, in lane n; 0 in lanes 8 to 15.
    Lanes pairProducts() const
    {
        return {m_fours[0] * m_fours[2], m_fours[1] * m_fours[3], FourLanes{}, FourLanes{}};
    }

    friend Lanes operator+(const Lanes& a, const Lanes& b)
    {
        return each([&](std::size_t i) { return a.m_fours[i] + b.m_fours[i]; });
    }
    friend Lanes operator-(const Lanes& a, const Lanes& b)
    {
        return each([&](std::size_t i) { return a.m_fours[i] - b.m_fours[i]; });
    }
    friend Lanes operator*(const Lanes& a, const Lanes& b)
    {
        return each([&](std::size_t i) { return a.m_fours[i] * b.m_fours[i]; });
    }
    friend Lanes operator*(const Lanes& a, float factor)
    {
        return each([&](std::size_t i) { return a.m_fours[i] * factor; });
    }
    Lanes& operator+=(const Lanes& other) { return *this = *this + other; }
    Lanes& operator*=(float factor) { return *this = *this * factor; }

    friend Lanes greater(const Lanes& a, const Lanes& b)
    {
        return each([&](std::size_t i) { return greater(a.m_fours[i], b.m_fours[i]); });
    }
    friend Lanes magnitude(const Lanes& a)
    {
        return each([&](std::size_t i) { return magnitude(a.m_fours[i]); });
    }

    /// Ends decays far below anything that is shown (-240 dBFS), before they reach the denormal numbers,
    /// which are slow to calculate with.
    friend Lanes withoutTiny(const Lanes& a)
    {
        return each([&](std::size_t i) {
            return keptWithin(a.m_fours[i], magnitude(a.m_fours[i]), 1.0e-12F, 1.0e12F);
        });
    }

private:
    /// Written out, since the compilers keep an array in registers only when all its indices are constants.
    template<typename Function>
    static Lanes each(const Function& function)
    {
        return {function(0), function(1), function(2), function(3)};
    }

    FourLanes m_fours[kFours] = {};
};

} // namespace Velmora::Server
