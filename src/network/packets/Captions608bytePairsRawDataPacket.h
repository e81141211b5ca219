#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// CEA-608 caption byte pairs. The payload has no layout yet; its bytes are kept whole.
class Captions608bytePairsRawDataPacket final
    : public OpaqueRawDataPacket<RawDataPacket::PID_CAPTIONS_608_BYTE_PAIRS> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
