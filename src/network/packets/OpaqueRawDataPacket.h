#pragma once

#include "network/RawDataPacket.h"

/// A measurement packet whose payload nobody here interprets yet: the bytes are kept whole and sent as they
/// are. The packet class of an identifier derives from it until its instrument gives the payload a layout.
template<RawDataPacket::PacketIdentifier Identifier>
class OpaqueRawDataPacket : public RawDataPacket {
public:
    static constexpr PacketIdentifier kPacketIdentifier = Identifier;

    using RawDataPacket::RawDataPacket;
    explicit OpaqueRawDataPacket(const QByteArray& payloadToSend)
        : m_payloadToSend(payloadToSend)
    {
    }

    PacketIdentifier getPacketIdentifier() const override { return Identifier; }
    /// The bytes given to the constructor, or those received.
    QByteArray getSerialisedPayloadForTransmit() const override
    {
        return m_payloadToSend.isNull() ? payload() : m_payloadToSend;
    }

private:
    QByteArray m_payloadToSend;
};
