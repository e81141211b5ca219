#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Teletext data. The payload has no layout yet; its bytes are kept whole.
class TeletextRawDataPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_TELETEXT> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
