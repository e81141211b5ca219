#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// SDI jitter spectrum. The payload has no layout yet; its bytes are kept whole.
class RawSdiJitterSpectrumDataPacket final
    : public OpaqueRawDataPacket<RawDataPacket::PID_RAW_SDI_JITTER_SPECTRUM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
