#pragma once

#include "network/packets/AudioMetersDataPacket.h"

/// Largest sample since the last packet, in dBFS, one value a channel.
class InstantPeakDbMetersData final
    : public AudioMetersDataPacketOf<RawDataPacket::PID_INSTANT_PEAK_DB_METERS> {
public:
    using AudioMetersDataPacketOf::AudioMetersDataPacketOf;
};
