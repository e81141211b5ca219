#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Eye diagram, vertical histogram. The payload has no layout yet; its bytes are kept whole.
class EyeVerticalHistogramData final : public OpaqueRawDataPacket<RawDataPacket::PID_EYE_VERTICAL_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
