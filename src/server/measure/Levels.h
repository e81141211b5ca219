#pragma once

#include "server/measure/AudioMeterReading.h"

#include <cmath>

namespace Velmora::Server {

/// Full scale = 1.0 is 0 dBFS; what lies below the floor of the meters is at the floor.
inline float levelDb(float factor)
{
    constexpr float kFloorFactor = 1.1220185e-5F; // -99 dB
    return factor > kFloorFactor ? 20.0F * std::log10(factor) : kMeterFloorDb;
}

/// What remains after @p frames samples of falling by @p dbPerSecond.
inline float decayPer(std::size_t frames, float dbPerSecond)
{
    return std::pow(10.0F, -dbPerSecond * static_cast<float>(frames) / (20.0F * kAudioSampleRate));
}

} // namespace Velmora::Server
