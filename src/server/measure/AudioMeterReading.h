#pragma once

#include "server/sources/AudioBlock.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>

namespace Velmora::Server {

/// The ballistics of a level meter; the order is that of AudioMonitorBallisticsSelection.
enum class Ballistics : std::uint8_t { PpmTypeI, PpmTypeII, Vu, VuFr, Fast };
inline constexpr std::size_t kBallisticsCount = 5;

/// What a meter shows when there is nothing to show, in dBFS; no reading is lower.
inline constexpr float kMeterFloorDb = -99.0F;

/// One value per channel, in the order of the channels.
using ChannelValues = std::array<float, kAudioChannels>;
using ChannelSet = std::bitset<kAudioChannels>;

/// What the meters show at the end of a period of 20 ms (960 samples). Levels are in dBFS: a sine whose peaks
/// touch full scale reads 0 on every meter. They go above 0 for samples beyond full scale and are
/// kMeterFloorDb for silence and for channels that are not present.
struct AudioMeterReading {
    /// Time stamp of the first sample after the period.
    std::uint64_t position = 0;
    /// Channels that were present at the end of the period.
    ChannelSet present;
    Ballistics selected = Ballistics::PpmTypeI;

    /// The level by each ballistics, indexed by Ballistics; at the floor for ballistics that are not run.
    /// Peak meters (PPM and Fast) give their highest indication within the period, so that none falls between
    /// two readings; the VU meters give where the pointer stands.
    std::array<ChannelValues, kBallisticsCount> levelsDb{};
    /// The hat above the selected ballistics' level.
    ChannelValues peakHoldDb{};
    /// The largest magnitude of the period's samples, in dBFS and as a factor of full scale (1.0).
    ChannelValues instantPeakDb{};
    ChannelValues instantPeakLinear{};

    /// Correlation of channels 2n and 2n+1 for n = 0 to 7, from -1 to 1; 0 where it is not valid.
    std::array<float, kAudioPairs> phase{};
    /// Whether both channels of a pair carry enough signal for their correlation to mean something.
    std::bitset<kAudioPairs> phaseValid;

    const ChannelValues& levelDb() const { return levelsDb[static_cast<std::size_t>(selected)]; }
};

} // namespace Velmora::Server
