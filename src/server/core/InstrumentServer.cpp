#include "server/core/InstrumentServer.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <algorithm>

namespace Velmora::Server {

namespace {

/// Clients that the kernel may hold ready while the event loop is busy.
constexpr int kMostPendingConnections = 256;

} // namespace

InstrumentServer::InstrumentServer(const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_faults(faults)
    , m_seed(seed)
    , m_streamer(faults, seed)
{
    m_server.setMaxPendingConnections(kMostPendingConnections);
    connect(&m_server, &QTcpServer::newConnection, this, &InstrumentServer::onNewConnection);
    connect(&m_server, &QTcpServer::acceptError, this,
            [this] { log()->error("Cannot take another client: {}", m_server.errorString()); });
}

InstrumentServer::~InstrumentServer()
{
    // The sessions take their requests back from the streamer, so they go before it.
    qDeleteAll(m_sessions);
}

bool InstrumentServer::listen(const QHostAddress& address, quint16 port)
{
    return m_server.listen(address, port);
}

void InstrumentServer::sendToAll(const SerialisableDataPacket& packet)
{
    // A copy: a client that is given up meanwhile leaves the list.
    const auto sessions = m_sessions;
    for (ClientSession* session : sessions)
        session->send(packet);
}

void InstrumentServer::onNewConnection()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        auto* const session =
            new ClientSession(std::unique_ptr<QTcpSocket>(socket), m_streamer, m_faults, m_seed++, this);
        m_sessions.push_back(session);
        connect(session, &ClientSession::ended, this, [this, session] { onSessionEnded(session); });
        log()->info("Client {} connected, {} in all", session->name(), clientCount());
        emit clientConnected(session);
    }
}

void InstrumentServer::onSessionEnded(ClientSession* session)
{
    std::erase(m_sessions, session);
    log()->info("Client {} has left, {} remain", session->name(), clientCount());
    emit clientEnded(session);
    session->deleteLater();
}

} // namespace Velmora::Server
