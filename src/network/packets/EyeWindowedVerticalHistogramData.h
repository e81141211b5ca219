#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Eye diagram, windowed vertical histogram. The payload has no layout yet; its bytes are kept whole.
class EyeWindowedVerticalHistogramData final
    : public OpaqueRawDataPacket<RawDataPacket::PID_EYE_WINDOWED_VERTICAL_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
