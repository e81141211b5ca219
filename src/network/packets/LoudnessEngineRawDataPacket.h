#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Report values of the loudness engine. The payload has no layout yet; its bytes are kept whole.
class LoudnessEngineRawDataPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_LOUDNESS_ENGINE> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
