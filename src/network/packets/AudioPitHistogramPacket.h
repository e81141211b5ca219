#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Histogram of audio packet intervals. The payload has no layout yet; its bytes are kept whole.
class AudioPitHistogramPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_AUDIO_PIT_HISTOGRAM> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
