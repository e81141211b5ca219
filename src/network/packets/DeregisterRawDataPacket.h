#pragma once

#include "network/packets/RegistrationRawDataPacket.h"

/// Takes a RegisterRawDataPacket back.
class DeregisterRawDataPacket final : public RegistrationRawDataPacket {
public:
    static constexpr PacketIdentifier kPacketIdentifier = PID_DEREGISTER_RAW_DATA;

    using RegistrationRawDataPacket::RegistrationRawDataPacket;

    PacketIdentifier getPacketIdentifier() const override { return kPacketIdentifier; }
};
