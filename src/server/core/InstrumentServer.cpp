#include "server/core/InstrumentServer.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/SerialisableDataPacket.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <algorithm>
#include <chrono>

namespace Velmora::Server {

namespace {

/// Clients that the kernel may hold ready while the event loop is busy.
constexpr int kMostPendingConnections = 256;
/// When a client could not be taken, as for want of file descriptors, others are tried after this pause.
constexpr std::chrono::milliseconds kAcceptPause{500};

} // namespace

InstrumentServer::InstrumentServer(const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_faults(faults)
    , m_seed(seed)
    , m_streamer(faults, seed)
{
    m_server.setMaxPendingConnections(kMostPendingConnections);
    connect(&m_server, &QTcpServer::newConnection, this, &InstrumentServer::onNewConnection);
    connect(&m_server, &QTcpServer::acceptError, this, &InstrumentServer::onAcceptError);
    m_acceptPause.setSingleShot(true);
    m_acceptPause.setInterval(kAcceptPause);
    connect(&m_acceptPause, &QTimer::timeout, &m_server, &QTcpServer::resumeAccepting);
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

void InstrumentServer::sendToAll(const SerialisableDataPacket& packet, ClientSession::Sending sending)
{
    // A copy: a client that is given up meanwhile leaves the list.
    const auto sessions = m_sessions;
    for (ClientSession* session : sessions)
        session->send(packet, sending);
}

void InstrumentServer::onNewConnection()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        auto* const session =
            new ClientSession(std::unique_ptr<QTcpSocket>(socket), m_streamer, m_faults, m_seed++, this);
        m_sessions.push_back(session);
        connect(session, &ClientSession::packetReceived, this,
                [this, session](const auto& packet) { onPacket(*session, *packet); });
        connect(session, &ClientSession::ended, this, [this, session] { onSessionEnded(session); });
        m_acceptFailed = false;
        static LogThrottle throttle;
        throttle.log(spdlog::level::info, "Client {} connected, {} in all", session->name(), clientCount());
        emit clientConnected(session);
    }
}

void InstrumentServer::setReceiver(const QString& className, Receiver receiver)
{
    m_receivers[className] = std::move(receiver);
}

void InstrumentServer::onPacket(ClientSession& session, const SerialisableDataPacket& packet)
{
    const auto receiver = m_receivers.find(packet.getPacketClassName());
    if (receiver != m_receivers.end()) {
        receiver->second(session, packet);
        return;
    }
    static LogThrottle throttle;
    throttle.log(spdlog::level::warn, "Client {} has sent a packet of type {}, which nobody here takes",
                 session.name(), packet.getPacketClassName());
}

/// The listening socket has stopped to listen.
void InstrumentServer::onAcceptError()
{
    if (!std::exchange(m_acceptFailed, true))
        log()->error("Cannot take another client: {}", m_server.errorString());
    m_acceptPause.start();
}

void InstrumentServer::onSessionEnded(ClientSession* session)
{
    std::erase(m_sessions, session);
    static LogThrottle throttle;
    throttle.log(spdlog::level::info, "Client {} has left, {} remain", session->name(), clientCount());
    emit clientEnded(session);
    session->deleteLater();
}

} // namespace Velmora::Server
