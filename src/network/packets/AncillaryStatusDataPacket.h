#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Ancillary data status. The payload has no layout yet; its bytes are kept whole.
class AncillaryStatusDataPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_ANCILLARY_STATUS> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
