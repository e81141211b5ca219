#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Histogram of video packet intervals. The payload has no layout yet; its bytes are kept whole.
class VideoPitHistogramPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_VIDEO_PIT_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
