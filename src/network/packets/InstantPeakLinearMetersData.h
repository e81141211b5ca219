#pragma once

#include "network/packets/AudioMetersDataPacket.h"

/// Largest sample since the last packet, 1.0 being full scale, one value a channel.
class InstantPeakLinearMetersData final
    : public AudioMetersDataPacketOf<RawDataPacket::PID_INSTANT_PEAK_LINEAR_METERS> {
public:
    using AudioMetersDataPacketOf::AudioMetersDataPacketOf;
};
