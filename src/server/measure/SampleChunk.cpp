#include "server/measure/SampleChunk.h"

#include <cstring>

namespace Velmora::Server {

namespace {

FourLanes fourSamples(const float* samples)
{
    FourLanes four;
    std::memcpy(&four, samples, sizeof four);
    return four;
}

/// Four samples of each of four channels, turned into four channels of each of four frames.
std::array<FourLanes, 4> transposed(const FourLanes& a, const FourLanes& b, const FourLanes& c,
                                    const FourLanes& d)
{
    const FourLanes abEarly = __builtin_shufflevector(a, b, 0, 4, 1, 5);
    const FourLanes cdEarly = __builtin_shufflevector(c, d, 0, 4, 1, 5);
    const FourLanes abLate = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const FourLanes cdLate = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    return {__builtin_shufflevector(abEarly, cdEarly, 0, 1, 4, 5),
            __builtin_shufflevector(abEarly, cdEarly, 2, 3, 6, 7),
            __builtin_shufflevector(abLate, cdLate, 0, 1, 4, 5),
            __builtin_shufflevector(abLate, cdLate, 2, 3, 6, 7)};
}

} // namespace

void SampleChunk::load(const std::array<const float*, kAudioChannels>& planes)
{
    // Four channels at a time: what that takes fits into the registers.
    for (std::size_t four = 0; four < Lanes::kFours; ++four) {
        const float* const a = planes[Lanes::channelOf(four * Lanes::kWidth)];
        const float* const b = planes[Lanes::channelOf(four * Lanes::kWidth + 1)];
        const float* const c = planes[Lanes::channelOf(four * Lanes::kWidth + 2)];
        const float* const d = planes[Lanes::channelOf(four * Lanes::kWidth + 3)];
        FourLanes sum{};
        for (std::size_t group = 0; group < kGroups; ++group) {
            const auto first = group * kGroupFrames;
            const auto frames = transposed(fourSamples(a + first), fourSamples(b + first),
                                           fourSamples(c + first), fourSamples(d + first));
            static_assert(kGroupFrames == frames.size());
            FourLanes peak{};
            const auto add = [&](std::size_t i) {
                const FourLanes raw = magnitude(frames[i]);
                const FourLanes usable = keptWithin(raw, raw, kQuietest, kLoudest);
                samples[first + i].setFour(four, keptWithin(frames[i], raw, kQuietest, kLoudest));
                magnitudes[first + i].setFour(four, usable);
                peak = greater(usable, peak);
                sum += usable;
            };
            add(0);
            add(1);
            add(2);
            add(3);
            groupPeaks[group].setFour(four, peak);
        }
        meanMagnitude.setFour(four, sum * (1.0F / kFrames));
    }
}

} // namespace Velmora::Server
