#include "server/core/ClientSession.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/SerialisableDataPacket.h"
#include "network/packets/RegistrationRawDataPacket.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>

namespace Velmora::Server {

ClientSession::ClientSession(std::unique_ptr<QTcpSocket> socket, RawDataStreamer& streamer,
                             const FaultPlan& faults, unsigned seed, QObject* parent)
    : QObject(parent)
    , m_streamer(streamer)
    , m_faults(faults, seed)
    , m_connection(this, true)
    , m_name(QStringLiteral("%1:%2").arg(socket->peerAddress().toString()).arg(socket->peerPort()))
{
    m_connection.connectToHost(std::move(socket));
    connect(&m_connection, &NetworkConnection::disconnectedFromHost, this, &ClientSession::end);
    connect(&m_connection, &NetworkConnection::serialisablePacketReceived, this,
            &ClientSession::packetReceived);
    connect(&m_connection, &NetworkConnection::rawDataRequested, this, &ClientSession::onRawDataRequested);
    connect(&m_connection, &NetworkConnection::rawDataCancelled, this, &ClientSession::onRawDataCancelled);
}

ClientSession::~ClientSession()
{
    takeBackRequests();
}

void ClientSession::send(const SerialisableDataPacket& packet, Sending sending)
{
    if (m_faults.loses())
        return;
    if (m_faults.plan().delay.count() == 0)
        write(packet, sending);
    else
        QTimer::singleShot(m_faults.plan().delay, Qt::PreciseTimer, this,
                           [this, packet, sending] { write(packet, sending); });
}

void ClientSession::write(const SerialisableDataPacket& packet, Sending sending)
{
    if (m_ended)
        return;
    if (sending == Sending::Queued)
        m_connection.queuePacket(packet);
    else
        m_connection.acceptPacket(packet);
    if (m_connection.getQueuedBytes() > kSendQueueLimit) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Client {} does not read: dropped with {} bytes waiting", m_name,
                     m_connection.getQueuedBytes());
        end();
    } else if (m_faults.plan().disconnect > 0 && ++m_packetsSent >= m_faults.plan().disconnect) {
        end();
    }
}

void ClientSession::onRawDataRequested(const RegistrationRawDataPacket& registration)
{
    const Request request{registration.getRawDataPacketID(),
                          {registration.getDstAddr(), registration.getDstPort()}};
    if (!isAllowed(request)) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Client {} asks for raw data packets {} at {}:{}, refused", m_name,
                     quint16{request.first}, QHostAddress(request.second.address).toString(),
                     request.second.port);
        return;
    }
    if (m_requests.insert(request).second)
        m_streamer.addRequest(request.first, request.second);
}

void ClientSession::onRawDataCancelled(const RegistrationRawDataPacket& registration)
{
    const Request request{registration.getRawDataPacketID(),
                          {registration.getDstAddr(), registration.getDstPort()}};
    if (m_requests.erase(request) > 0)
        m_streamer.removeRequest(request.first, request.second);
}

/// Only measurement packets are streamed, and only to the client itself: nobody can turn the stream against
/// another host.
bool ClientSession::isAllowed(const Request& request) const
{
    const auto& [identifier, destination] = request;
    return identifier > RawDataPacket::PID_SERIALISABLE_DATA
        && identifier < RawDataPacket::PID_REGISTER_RAW_DATA && destination.port != 0
        && destination.address != 0 && destination.address == m_connection.getPeerAddress().toIPv4Address()
        && m_requests.size() < kMostRequests;
}

void ClientSession::takeBackRequests()
{
    for (const auto& [identifier, destination] : std::exchange(m_requests, {}))
        m_streamer.removeRequest(identifier, destination);
}

void ClientSession::end()
{
    if (std::exchange(m_ended, true))
        return;
    m_connection.disconnectFromHost();
    // Not only with the object, whose turn to go may come after the streamer's.
    takeBackRequests();
    emit ended();
}

} // namespace Velmora::Server
