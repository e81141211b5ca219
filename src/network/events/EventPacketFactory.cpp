#include "network/events/EventPacketFactory.h"

#include "network/events/AudioInputPresenceChangeEventPacket.h"
#include "network/events/IpInterfacesEventPacket.h"
#include "network/events/IpRxEventPacket.h"
#include "network/events/IpTxEventPacket.h"
#include "network/events/LoggerResetEventPacket.h"
#include "network/events/NMOSEventPacket.h"
#include "network/events/PtpEventPacket.h"
#include "network/events/ReferenceLockingEventPacket.h"
#include "network/events/RestApiRequestEventPacket.h"
#include "network/events/SCTE104EventPacket.h"
#include "network/events/SdiInputRateChangeEventPacket.h"
#include "network/events/SdiInputVideoStandardChangeEventPacket.h"
#include "network/events/SdiJitterAlignmentRangeConformanceEventPacket.h"
#include "network/events/SdiJitterTimingRangeConformanceEventPacket.h"
#include "network/events/SfpEventPacket.h"

namespace {

using EventPointer = std::shared_ptr<LogSerialisableDataPacket>;

template<typename Event>
EventPointer make(const SerialisableDataPacket& packet)
{
    bool ok = false;
    return std::make_shared<Event>(
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<Event>(packet, ok));
}

struct Entry {
    QLatin1String className;
    EventPointer (*make)(const SerialisableDataPacket& packet);
};

template<typename Event>
constexpr Entry entry()
{
    return {Event::kClassName, &make<Event>};
}

/// A new event class has its line here, and its value in EventKind.
constexpr Entry kEntries[] = {
    entry<LoggerResetEventPacket>(),
    entry<SCTE104EventPacket>(),
    entry<AudioInputPresenceChangeEventPacket>(),
    entry<SfpEventPacket>(),
    entry<IpInterfacesEventPacket>(),
    entry<IpRxEventPacket>(),
    entry<IpTxEventPacket>(),
    entry<ReferenceLockingEventPacket>(),
    entry<SdiInputVideoStandardChangeEventPacket>(),
    entry<SdiInputRateChangeEventPacket>(),
    entry<RestApiRequestEventPacket>(),
    entry<SdiJitterAlignmentRangeConformanceEventPacket>(),
    entry<SdiJitterTimingRangeConformanceEventPacket>(),
    entry<NMOSEventPacket>(),
    entry<PtpEventPacket>(),
};

} // namespace

EventPointer EventPacketFactory::createEventFromSerialisedDataPacket(const SerialisableDataPacket& packet)
{
    const QString className = packet.getPacketClassName();
    for (const Entry& entry : kEntries) {
        if (className == entry.className)
            return entry.make(packet);
    }
    return nullptr;
}
