#pragma once

#include "server/measure/Lanes.h"

#include <array>

namespace Velmora::Server {

/// 32 frames of all channels, with what several detectors need of them computed once.
///
/// 32 divides the 960 samples of a reading: because detectors only ever see whole chunks, results do not
/// depend on the size of the blocks that the samples came in.
struct SampleChunk {
    static constexpr std::size_t kFrames = 32;
    /// The peak detectors decay once per group. Nothing falls within one, so its highest indication is its
    /// last.
    static constexpr std::size_t kGroupFrames = 4;
    static constexpr std::size_t kGroups = kFrames / kGroupFrames;

    /// Samples beyond this magnitude (+60 dBFS) come from damaged data; like those that are not numbers they
    /// count as silence. Smaller than the other (-200 dBFS) count as silence to keep denormal numbers out of
    /// the detectors.
    static constexpr float kLoudest = 1.0e3F;
    static constexpr float kQuietest = 1.0e-10F;

    /// Takes kFrames samples of each channel, with silence for those that cannot be measured.
    void load(const std::array<const float*, kAudioChannels>& planes);

    std::array<Lanes, kFrames> samples;
    std::array<Lanes, kFrames> magnitudes;
    std::array<Lanes, kGroups> groupPeaks;
    Lanes meanMagnitude;
};

} // namespace Velmora::Server
