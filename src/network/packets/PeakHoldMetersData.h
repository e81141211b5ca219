#pragma once

#include "network/packets/AudioMetersDataPacket.h"

/// Held peaks of the programme levels, in dBFS, one value a channel.
class PeakHoldMetersData final : public AudioMetersDataPacketOf<RawDataPacket::PID_PEAK_HOLD_METERS> {
public:
    using AudioMetersDataPacketOf::AudioMetersDataPacketOf;
};
