#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// SCTE 104 messages. The payload has no layout yet; its bytes are kept whole.
class SCTE104RawDataPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_SCTE104> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
