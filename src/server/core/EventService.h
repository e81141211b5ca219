#pragma once

#include "network/events/EventKind.h"
#include "network/events/SequencePackagedLogPacket.h"

#include <QObject>

#include <cstddef>
#include <deque>

namespace Velmora::Server {

class ClientSession;
class InstrumentServer;

/// The instrument's event log: takes what its parts raise, keeps the latest, and sends each event with its
/// time to every client.
///
/// A client that connects gets the events kept so far, the oldest first, so that its log shows what happened
/// while it was away. One that comes back gets some of them again; it can tell by their time and text.
class EventService : public QObject {
    Q_OBJECT
public:
    static constexpr std::size_t kMostKept = 1000;
    /// Bytes of an event's JSON text; larger ones are left out. Together the kept ones stay below what may
    /// wait for a client.
    static constexpr int kLargestEvent = 8 * 1024;

    explicit EventService(InstrumentServer& server, QObject* parent = nullptr);

    /// Begins to serve the clients that connect from now on. To be called after DatacoreService::start():
    /// whoever starts first speaks first to a new client.
    void start();

    /// Stamps the event with the time of now.
    void raise(const LogSerialisableDataPacket& event);
    /// Forgets the kept events and raises the event that says so, which is kept.
    void reset();

    /// Sends the kept events of that kind to one client once more, marked as asked for. Returns how many.
    int sendKept(ClientSession& session, EventKind kind) const;

    std::size_t keptCount() const { return m_kept.size(); }

signals:
    /// Emitted after the event that caused it was sent.
    void keptCountChanged();

private:
    void sendKept(ClientSession& session) const;

    InstrumentServer& m_server;
    std::deque<SequencePackagedLogPacket> m_kept;
};

} // namespace Velmora::Server
