#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Detection of SMPTE ST 337 (Dolby) data in the audio. The payload has no layout yet; its bytes are kept
/// whole.
class ST337DolbyDetectData final : public OpaqueRawDataPacket<RawDataPacket::PID_ST337_DOLBY_DETECT> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
