#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Timing of the reference against PTP. The payload has no layout yet; its bytes are kept whole.
class RefVsPtpPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_REF_VS_PTP> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
