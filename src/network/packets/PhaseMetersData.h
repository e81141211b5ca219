#pragma once

#include "network/packets/AudioMetersDataPacket.h"

/// Phase correlation of the channel pairs, -1 to +1, the value of a pair on both of its channels.
class PhaseMetersData final : public AudioMetersDataPacketOf<RawDataPacket::PID_PHASE_METERS> {
public:
    using AudioMetersDataPacketOf::AudioMetersDataPacketOf;
};
