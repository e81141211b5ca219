#include "network/RawDataPacket.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>

RawDataPacket::RawDataPacket(const QByteArray& frame, const Header& header)
    : m_header(header)
{
    const auto available = std::max<qint64>(0, frame.size() - kHeaderSize);
    const auto length = static_cast<int>(std::min<qint64>(header.payloadSize, available));
    m_payload = QByteArray(frame.constData() + std::min<int>(kHeaderSize, frame.size()), length);
}

RawDataPacket::~RawDataPacket() = default;

quint16 RawDataPacket::getSourceInstanceIdentifier() const
{
    return 0;
}

RawDataPacket::Header RawDataPacket::readHeaderFromStream(QDataStream& stream)
{
    Header header;
    quint16 identifier = 0;
    stream >> header.magic >> identifier >> header.sourceInstanceIdentifier >> header.payloadSize;
    header.packetIdentifier = static_cast<PacketIdentifier>(identifier);
    return header;
}

void RawDataPacket::writeHeaderToDataStream(const Header& header, QDataStream& stream)
{
    stream << header.magic << static_cast<quint16>(header.packetIdentifier) << header.sourceInstanceIdentifier
           << header.payloadSize;
}

RawDataPacket::Header RawDataPacket::peekHeader(const QByteArray& buffer)
{
    return peekHeader(buffer.constData(), buffer.size());
}

RawDataPacket::Header RawDataPacket::peekHeader(const char* data, qint64 size)
{
    Header header;
    if (size >= kHeaderSize) {
        // Loaded directly, since this runs for every frame: a data stream costs thirty times as much.
        header.magic = qFromBigEndian<quint64>(data);
        header.packetIdentifier = static_cast<PacketIdentifier>(qFromBigEndian<quint16>(data + 8));
        header.sourceInstanceIdentifier = qFromBigEndian<quint16>(data + 10);
        header.payloadSize = qFromBigEndian<quint32>(data + 12);
    } else {
        QDataStream stream(QByteArray::fromRawData(data, static_cast<int>(size)));
        header = readHeaderFromStream(stream);
    }

    if (header.magic != kMagic || !isPacketIdentifier(header.packetIdentifier))
        header.packetIdentifier = PID_INVALID;
    else if (header.frameSize() > size)
        header.packetIdentifier = PID_INCOMPLETE;
    return header;
}

QByteArray RawDataPacket::generatePacketHeaderForPayload(const QByteArray& payload) const
{
    QByteArray bytes(kHeaderSize, Qt::Uninitialized);
    char* const data = bytes.data();
    qToBigEndian<quint64>(kMagic, data);
    qToBigEndian<quint16>(getPacketIdentifier(), data + 8);
    qToBigEndian<quint16>(getSourceInstanceIdentifier(), data + 10);
    qToBigEndian<quint32>(static_cast<quint32>(payload.size()), data + 12);
    return bytes;
}

qint64 RawDataPacket::serialisePacketAndWriteToDevice(QIODevice& device) const
{
    const QByteArray payload = getSerialisedPayloadForTransmit();
    const QByteArray header = generatePacketHeaderForPayload(payload);
    const qint64 headerWritten = device.write(header);
    const qint64 payloadWritten = device.write(payload);
    const qint64 trailerWritten = device.write(kTrailer, kTrailerSize);
    return headerWritten + payloadWritten + trailerWritten;
}

void RawDataPacket::appendFrameTo(QByteArray& target) const
{
    const QByteArray payload = getSerialisedPayloadForTransmit();
    target.append(generatePacketHeaderForPayload(payload));
    target.append(payload);
    target.append(kTrailer, kTrailerSize);
}
