#pragma once

#include "server/measure/AudioMeterReading.h"

namespace Velmora::Server {

/// The hats of all channels: each keeps the largest level for the hold time, counted from when it was last
/// reached, then drops to the present level, which it keeps in the same way.
class PeakHold {
public:
    /// Any negative time holds for ever; 0 makes the hat follow the level.
    void setHoldSeconds(double seconds);
    double holdSeconds() const { return m_holdSeconds; }

    /// Takes the levels (dB) after another @p frames samples; returns the hats.
    const ChannelValues& update(const ChannelValues& levelsDb, std::size_t frames);
    void clear();
    void clearChannel(std::size_t channel);

private:
    static constexpr double kDefaultHoldSeconds = 1.0;

    double m_holdSeconds = kDefaultHoldSeconds;
    ChannelValues m_heldDb = cleared();
    std::array<std::uint64_t, kAudioChannels> m_age{};

    static ChannelValues cleared();
};

} // namespace Velmora::Server
