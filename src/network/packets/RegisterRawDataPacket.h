#pragma once

#include "network/packets/RegistrationRawDataPacket.h"

/// Asks the server to send one kind of raw data packet by UDP.
class RegisterRawDataPacket final : public RegistrationRawDataPacket {
public:
    static constexpr PacketIdentifier kPacketIdentifier = PID_REGISTER_RAW_DATA;

    using RegistrationRawDataPacket::RegistrationRawDataPacket;

    PacketIdentifier getPacketIdentifier() const override { return kPacketIdentifier; }
};
