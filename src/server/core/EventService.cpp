#include "server/core/EventService.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/events/EventPacketFactory.h"
#include "network/events/LoggerResetEventPacket.h"
#include "server/core/ClientSession.h"
#include "server/core/InstrumentServer.h"

namespace Velmora::Server {

static_assert(EventService::kMostKept * EventService::kLargestEvent < ClientSession::kSendQueueLimit);

EventService::EventService(InstrumentServer& server, QObject* parent)
    : QObject(parent)
    , m_server(server)
{
}

void EventService::start()
{
    connect(&m_server, &InstrumentServer::clientConnected, this,
            [this](ClientSession* session) { sendKept(*session); });
}

void EventService::raise(const LogSerialisableDataPacket& event)
{
    const SequencePackagedLogPacket packet(event, QDateTime::currentDateTime());
    if (const int size = packet.serialise().size(); size > kLargestEvent) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "An event of type {} with {} bytes is too large for the log",
                     event.getPacketClassName(), size);
        return;
    }
    const std::size_t before = m_kept.size();
    m_kept.push_back(packet);
    if (m_kept.size() > kMostKept)
        m_kept.pop_front();
    m_server.sendToAll(packet);
    if (m_kept.size() != before)
        emit keptCountChanged();
}

void EventService::reset()
{
    m_kept.clear();
    raise(LoggerResetEventPacket());
}

void EventService::sendKept(ClientSession& session) const
{
    for (const SequencePackagedLogPacket& packet : m_kept)
        session.send(packet);
}

int EventService::sendKept(ClientSession& session, EventKind kind) const
{
    int count = 0;
    for (SequencePackagedLogPacket packet : m_kept) {
        const auto event = EventPacketFactory::createEventFromSerialisedDataPacket(packet.getLogPacket());
        if (!event || event->getEventKind() != kind)
            continue;
        packet.markRequested();
        session.send(packet);
        ++count;
    }
    return count;
}

} // namespace Velmora::Server
