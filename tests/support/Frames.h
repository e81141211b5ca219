#pragma once

#include "network/RawDataPacket.h"

#include <QByteArray>

/// Bytes of frames for tests.
namespace Frames {

/// The frame as the packet itself writes it.
QByteArray of(const RawDataPacket& packet);
/// A frame of any identifier and payload, made without the packet classes.
QByteArray raw(quint16 identifier, const QByteArray& payload, const QByteArray& trailer = "\xDE\xAD\xBE\xEF");
/// A serialisable packet's frame around any text.
QByteArray json(const QByteArray& text);
/// A header alone that claims @p payloadSize bytes.
QByteArray header(quint16 identifier, quint32 payloadSize);

} // namespace Frames
