#pragma once

#include "network/RawDataPacket.h"

#include <memory>

/// Makes the packet object of a received frame.
class RawDataPacketFactory {
public:
    /// The packet class of the header's identifier, constructed from the frame; null when the frame is
    /// shorter than its header and payload or the identifier is none.
    static std::shared_ptr<RawDataPacket> createPacket(const QByteArray& frame,
                                                       const RawDataPacket::Header& header);
};
