#include "network/packets/RegistrationRawDataPacket.h"

#include <QtEndian>

namespace {

constexpr int kPayloadSize = 8;

} // namespace

RegistrationRawDataPacket::RegistrationRawDataPacket(const QByteArray& frame, const Header& header)
    : RawDataPacket(frame, header)
{
    if (payload().size() < kPayloadSize)
        return;
    const char* const data = payload().constData();
    m_rawDataPacketID = static_cast<PacketIdentifier>(qFromBigEndian<quint16>(data));
    m_dstPort = qFromBigEndian<quint16>(data + 2);
    m_dstAddr = qFromBigEndian<quint32>(data + 4);
}

RegistrationRawDataPacket::RegistrationRawDataPacket(quint16 rawDataPacketID, quint32 dstAddr,
                                                     quint16 dstPort)
    : m_rawDataPacketID(static_cast<PacketIdentifier>(rawDataPacketID))
    , m_dstPort(dstPort)
    , m_dstAddr(dstAddr)
{
}

QByteArray RegistrationRawDataPacket::getSerialisedPayloadForTransmit() const
{
    QByteArray bytes(kPayloadSize, Qt::Uninitialized);
    char* const data = bytes.data();
    qToBigEndian<quint16>(m_rawDataPacketID, data);
    qToBigEndian<quint16>(m_dstPort, data + 2);
    qToBigEndian<quint32>(m_dstAddr, data + 4);
    return bytes;
}
