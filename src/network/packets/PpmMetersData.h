#pragma once

#include "network/packets/AudioMetersDataPacket.h"

/// Programme levels in the ballistics chosen, in dBFS, one value a channel.
class PpmMetersData final : public AudioMetersDataPacketOf<RawDataPacket::PID_PPM_METERS> {
public:
    using AudioMetersDataPacketOf::AudioMetersDataPacketOf;
};
