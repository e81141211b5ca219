#include "support/Frames.h"

#include <QBuffer>
#include <QDataStream>

QByteArray Frames::of(const RawDataPacket& packet)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    packet.serialisePacketAndWriteToDevice(buffer);
    return buffer.data();
}

QByteArray Frames::raw(quint16 identifier, const QByteArray& payload, const QByteArray& trailer)
{
    return header(identifier, static_cast<quint32>(payload.size())) + payload + trailer;
}

QByteArray Frames::json(const QByteArray& text)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << text;
    return raw(0x1010, payload);
}

QByteArray Frames::header(quint16 identifier, quint32 payloadSize)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << quint64(0xCAFEBA6E1F00D321) << identifier << quint16(0) << payloadSize;
    return bytes;
}
