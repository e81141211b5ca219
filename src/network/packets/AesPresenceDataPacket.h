#pragma once

#include "network/packets/OpaqueRawDataPacket.h"

/// Presence of the AES inputs. The payload has no layout yet; its bytes are kept whole.
class AesPresenceDataPacket final : public OpaqueRawDataPacket<RawDataPacket::PID_AES_PRESENCE> {
public:
    using OpaqueRawDataPacket::OpaqueRawDataPacket;
};
