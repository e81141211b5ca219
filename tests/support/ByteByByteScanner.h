#pragma once

#include "network/RawDataPacket.h"

#include <QByteArrayList>

/// The rules of the frame stream in their plainest form, one byte at a time with everything in one buffer:
/// what the scanner is held against.
inline QByteArrayList framesByteByByte(const QByteArray& stream, qint64 frameSizeLimit)
{
    QByteArrayList frames;
    qint64 offset = 0;
    while (stream.size() - offset >= RawDataPacket::kHeaderSize) {
        const char* const rest = stream.constData() + offset;
        const auto header = RawDataPacket::peekHeader(rest, stream.size() - offset);
        const bool tooLarge = header.frameSize() > frameSizeLimit;
        if (header.packetIdentifier == RawDataPacket::PID_INVALID || tooLarge) {
            offset += 1;
        } else if (header.packetIdentifier == RawDataPacket::PID_INCOMPLETE) {
            break;
        } else if (QByteArray(rest + 16 + header.payloadSize, 4) != "\xDE\xAD\xBE\xEF") {
            offset += 16;
        } else {
            frames << QByteArray(rest, static_cast<int>(header.frameSize()));
            offset += header.frameSize();
        }
    }
    return frames;
}
