#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// SMPTE ST 2110-21 timing data. The payload has no layout yet; its bytes are kept whole.
class VideoIp2110_21DataPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_VIDEO_IP_2110_21> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
