#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// AES3 channel status bytes. The payload has no layout yet; its bytes are kept whole.
class AudioChannelStatusDataPacket final
    : public OpaqueRawDataPacket<RawDataPacket::PID_AUDIO_CHANNEL_STATUS> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
