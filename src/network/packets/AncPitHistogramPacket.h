#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Histogram of ancillary packet intervals. The payload has no layout yet; its bytes are kept whole.
class AncPitHistogramPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_ANC_PIT_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
