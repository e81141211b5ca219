#pragma once

#include "network/events/LogSerialisableDataPacket.h"

#include <memory>

/// Makes event objects of the packets inside sequence-packaged log packets.
class EventPacketFactory {
public:
    /// The packet as the event class of its class name; null when there is none of that name.
    static std::shared_ptr<LogSerialisableDataPacket>
    createEventFromSerialisedDataPacket(const SerialisableDataPacket& packet);
};
