#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Jitter, vertical histogram. The payload has no layout yet; its bytes are kept whole.
class JitterVerticalHistogramData final
    : public OpaqueRawDataPacket<RawDataPacket::PID_JITTER_VERTICAL_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
