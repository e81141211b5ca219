#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Eye diagram, horizontal histogram. The payload has no layout yet; its bytes are kept whole.
class EyeHorizontalHistogramData final
    : public OpaqueRawDataPacket<RawDataPacket::PID_EYE_HORIZONTAL_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
