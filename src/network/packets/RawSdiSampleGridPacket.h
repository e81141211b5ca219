#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Grid of raw SDI samples. The payload has no layout yet; its bytes are kept whole.
class RawSdiSampleGridPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_RAW_SDI_SAMPLE_GRID> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
