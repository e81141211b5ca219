#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Latency of media against PTP time. The payload has no layout yet; its bytes are kept whole.
class PtpMediaLatencyPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_PTP_MEDIA_LATENCY> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
