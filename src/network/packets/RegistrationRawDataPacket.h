#pragma once

#include "network/RawDataPacket.h"

/// Base of the two requests about raw data by UDP. Payload, big-endian:
///
/// | offset | width | field                                                            |
/// |--------|-------|------------------------------------------------------------------|
/// | 0      | 2     | identifier of the packets wanted, or no longer wanted            |
/// | 2      | 2     | UDP port on which the requester listens                          |
/// | 4      | 4     | requester's IPv4 address                                         |
///
/// A received payload of less than these 8 bytes reads as zeros.
class RegistrationRawDataPacket : public RawDataPacket {
public:
    RegistrationRawDataPacket(const QByteArray& frame, const Header& header);
    RegistrationRawDataPacket(quint16 rawDataPacketID, quint32 dstAddr, quint16 dstPort);

    /// Any 16-bit value: what the peer asks for need not exist.
    PacketIdentifier getRawDataPacketID() const { return m_rawDataPacketID; }
    quint32 getDstAddr() const { return m_dstAddr; }
    quint16 getDstPort() const { return m_dstPort; }

    QByteArray getSerialisedPayloadForTransmit() const override;

private:
    PacketIdentifier m_rawDataPacketID = PID_INVALID;
    quint16 m_dstPort = 0;
    quint32 m_dstAddr = 0;
};
