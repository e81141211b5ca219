#include "network/NetworkConnection.h"

#include "network/PeerWatch.h"
#include "network/RawDataPacketFactory.h"
#include "network/RawDataPacketRegistry.h"
#include "network/SerialisableDataPacket.h"
#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/RegisterRawDataPacket.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QHostAddress>
#include <QPointer>
#include <QTcpSocket>
#include <QUdpSocket>

#include <utility>

using Velmora::LogThrottle;

namespace {

/// More datagrams than a socket buffer can hold: what a notification discards at most, lest a flood keep it
/// for ever.
constexpr int kMostDiscardedDatagrams = 16384;

QString connectionId(const QHostAddress& address, quint16 port)
{
    return QStringLiteral("%1%2").arg(address.toIPv4Address()).arg(port);
}

} // namespace

NetworkConnection::NetworkConnection(QObject* parent, bool serving)
    : QObject(parent)
    , m_serving(serving)
    , m_tcpStream("TCP", kTcpFrameSizeLimit, static_cast<int>(kTcpReadBufferSize))
    , m_udpStream("UDP", kUdpFrameSizeLimit, kUdpReservedBytes)
{
}

NetworkConnection::~NetworkConnection()
{
    for (QAbstractSocket* socket :
         {static_cast<QAbstractSocket*>(m_tcpSocket), static_cast<QAbstractSocket*>(m_udpSocket)}) {
        if (!socket)
            continue;
        socket->disconnect(this);
        m_sockets.drop(socket);
    }
}

bool NetworkConnection::connectToHost(const QString& host, quint16 port)
{
    const QPointer<NetworkConnection> alive(this);
    const QPointer<QTcpSocket> socket(new QTcpSocket(this));
    replaceTcpSocket(socket);
    // Whoever heard of the loss of the connection before may have connected, too, or destroyed this one.
    if (!alive || !socket || socket != m_tcpSocket)
        return alive && isConnectedToHost();
    socket->connectToHost(host, port, QIODevice::ReadWrite, QAbstractSocket::AnyIPProtocol);
    if (!socket->waitForConnected(kConnectTimeoutMs))
        return false;
    onTcpConnected();
    if (m_udpPort > 0)
        requestRegisteredRawDataPacketsFromServer();
    // A peer that went away again has been found out by the requests. Its loss was signalled, and nobody
    // would hear of it once more.
    return alive && isConnectedToHost();
}

bool NetworkConnection::connectToHost(const QHostAddress& address, quint16 port)
{
    return connectToHost(address.toString(), port);
}

void NetworkConnection::connectToHost(std::unique_ptr<QTcpSocket>&& adopted)
{
    const QPointer<NetworkConnection> alive(this);
    const QPointer<QTcpSocket> socket(adopted.release());
    socket->setParent(this);
    replaceTcpSocket(socket);
    if (!alive || !socket || socket != m_tcpSocket)
        return;
    onTcpConnected();
    if (m_udpPort >= 1)
        requestRegisteredRawDataPacketsFromServer();
}

void NetworkConnection::disconnectFromHost()
{
    replaceTcpSocket(nullptr);
}

bool NetworkConnection::isConnectedToHost() const
{
    return m_tcpSocket && m_tcpSocket->state() == QAbstractSocket::ConnectedState;
}

QHostAddress NetworkConnection::getPeerAddress() const
{
    return isConnectedToHost() ? m_tcpSocket->peerAddress() : QHostAddress();
}

qint64 NetworkConnection::getQueuedBytes() const
{
    return m_tcpSocket ? m_tcpSocket->bytesToWrite() : 0;
}

bool NetworkConnection::canAcceptPacket(const QString& /*className*/) const
{
    return true;
}

void NetworkConnection::acceptPacket(const SerialisableDataPacket& packet)
{
    if (!canWriteTcp())
        return;
    packet.serialisePacketAndWriteToDevice(*m_tcpSocket);
    m_tcpSocket->flush();
}

void NetworkConnection::queuePacket(const SerialisableDataPacket& packet)
{
    if (!canWriteTcp())
        return;
    const qint64 before = m_tcpSocket->bytesToWrite();
    packet.serialisePacketAndWriteToDevice(*m_tcpSocket);
    // Once a piece, not as long as there is one: a peer that does not read would be tried for every packet.
    if (m_tcpSocket->bytesToWrite() / kTcpSendPiece > before / kTcpSendPiece)
        m_tcpSocket->flush();
}

void NetworkConnection::sendRawPacket(std::shared_ptr<const RawDataPacket> packet)
{
    if (!m_requestedRawDataPacketIds.contains(packet->getPacketIdentifier()))
        return;
    if (!m_udpSocket)
        openSendingSocket();
    if (!m_udpSocket->isWritable())
        return;
    packet->serialisePacketAndWriteToDevice(*m_udpSocket);
    m_udpSocket->flush();
}

void NetworkConnection::listenForRawDataPackets(const QHostAddress& address, quint16 port)
{
    auto socket = std::make_unique<QUdpSocket>();
    if (m_udpPort == -1 && !socket->bind(address, port)) {
        Velmora::log()->error("NetworkConnection ERROR UDP port {} could not be bound: {}", port,
                              socket->errorString());
    }
    listenForRawDataPackets(std::move(socket), port);
}

void NetworkConnection::listenForRawDataPackets(std::unique_ptr<QUdpSocket>&& socket)
{
    const quint16 port = socket->localPort();
    listenForRawDataPackets(std::move(socket), port);
}

void NetworkConnection::listenForRawDataPackets(std::unique_ptr<QUdpSocket>&& socket, quint16 port)
{
    if (m_udpPort != -1) {
        Velmora::log()->error("NetworkConnection ERROR Raw Data Packet datagram port already open");
        return;
    }
    if (QUdpSocket* const previous = std::exchange(m_udpSocket, socket.release()))
        m_sockets.drop(previous);
    m_udpSocket->setParent(this);
    m_udpPort = static_cast<qint16>(port);
    const QPointer<NetworkConnection> alive(this);
    if (isConnectedToHost())
        requestRegisteredRawDataPacketsFromServer();
    if (!alive)
        return;
    Velmora::log()->info("NetworkConnection listening for RawDataPackets on port {}", port);
    connect(m_udpSocket, &QUdpSocket::readyRead, this, &NetworkConnection::onReadyReadUdp);
    // While readyRead() is being handled, an event loop that is run meanwhile keeps it back, this one not.
    connect(m_udpSocket, &QUdpSocket::channelReadyRead, this,
            [this] { m_datagramsKeptBack = m_sockets.isHandlingSignal(); });
}

void NetworkConnection::requestRawDataPacketFromServer(RawDataPacket::PacketIdentifier identifier)
{
    if (m_udpPort < 0) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err,
                     "NetworkConnection requestRawDataPacketFromServer ERROR UDP port not open");
        return;
    }
    sendRegistration<RegisterRawDataPacket>(identifier);
}

void NetworkConnection::cancelRawDataPacketFromServer(RawDataPacket::PacketIdentifier identifier)
{
    if (m_udpPort >= 0)
        sendRegistration<DeregisterRawDataPacket>(identifier);
}

void NetworkConnection::requestRegisteredRawDataPacketsFromServer()
{
    // Sending may find the connection lost, and whoever hears of it may destroy this object.
    const QPointer<NetworkConnection> alive(this);
    for (const auto identifier : RawDataPacketRegistry::getInstance().getAllRegisteredPacketIdentifiers()) {
        if (alive && identifier != RawDataPacket::PID_SERIALISABLE_DATA)
            requestRawDataPacketFromServer(identifier);
    }
}

QString NetworkConnection::socketErrorAsString(QAbstractSocket::SocketError error)
{
    switch (error) {
#define WZ_SOCKET_ERROR(name)                                                                                \
    case QAbstractSocket::name:                                                                              \
        return QStringLiteral("QAbstractSocket::" #name)
        WZ_SOCKET_ERROR(ConnectionRefusedError);
        WZ_SOCKET_ERROR(RemoteHostClosedError);
        WZ_SOCKET_ERROR(HostNotFoundError);
        WZ_SOCKET_ERROR(SocketAccessError);
        WZ_SOCKET_ERROR(SocketResourceError);
        WZ_SOCKET_ERROR(SocketTimeoutError);
        WZ_SOCKET_ERROR(DatagramTooLargeError);
        WZ_SOCKET_ERROR(NetworkError);
        WZ_SOCKET_ERROR(AddressInUseError);
        WZ_SOCKET_ERROR(SocketAddressNotAvailableError);
        WZ_SOCKET_ERROR(UnsupportedSocketOperationError);
        WZ_SOCKET_ERROR(UnfinishedSocketOperationError);
        WZ_SOCKET_ERROR(ProxyAuthenticationRequiredError);
        WZ_SOCKET_ERROR(ProxyConnectionRefusedError);
        WZ_SOCKET_ERROR(ProxyConnectionClosedError);
        WZ_SOCKET_ERROR(ProxyConnectionTimeoutError);
        WZ_SOCKET_ERROR(ProxyNotFoundError);
        WZ_SOCKET_ERROR(ProxyProtocolError);
        WZ_SOCKET_ERROR(UnknownSocketError);
#undef WZ_SOCKET_ERROR
    default:
        return QStringLiteral("illegal value for QAbstractSocket::SocketError: %1").arg(error);
    }
}

void NetworkConnection::onReadyReadTcp()
{
    const SocketKeeper::Scope scope(m_sockets);
    // Again for what came while a receiver ran an event loop: the socket does not speak of it any more.
    while (m_tcpSocket && !mustHoldBack() && m_tcpStream.appendAll(*m_tcpSocket)) {
        m_traffic.sinceLast.start();
        m_tcpStream.consumeFrames([&](FrameScanner& frame) {
            ++m_traffic.tcpFrames;
            handleTcpFrame(frame);
            return scope.connectionIsAlive();
        });
        if (!scope.connectionIsAlive())
            return;
    }
}

bool NetworkConnection::mustHoldBack()
{
    m_heldBack = m_serving && m_tcpSocket->bytesToWrite() > kTcpBacklogLimit;
    return m_heldBack;
}

void NetworkConnection::onBytesWritten()
{
    if (m_heldBack && m_tcpSocket && !mustHoldBack())
        QMetaObject::invokeMethod(this, &NetworkConnection::onReadyReadTcp, Qt::QueuedConnection);
}

void NetworkConnection::onReadyReadUdp()
{
    const SocketKeeper::Scope scope(m_sockets);
    do {
        if (!m_udpSocket)
            return;
        m_datagramsKeptBack = false;
        receiveDatagrams();
        m_traffic.sinceLast.start();
        m_udpStream.consumeFrames([&](FrameScanner& frame) {
            ++m_traffic.udpFrames;
            handleUdpFrame(frame);
            return scope.connectionIsAlive();
        });
    } while (scope.connectionIsAlive() && m_datagramsKeptBack);
}

void NetworkConnection::onSocketError(QAbstractSocket::SocketError error)
{
    static LogThrottle throttle;
    throttle.log(spdlog::level::info, "{}", socketErrorAsString(error));
}

void NetworkConnection::wireTcpSocket(QTcpSocket* socket)
{
    socket->setReadBufferSize(kTcpReadBufferSize);
    connect(socket, &QTcpSocket::readyRead, this, &NetworkConnection::onReadyReadTcp, Qt::DirectConnection);
    connect(
        socket, &QTcpSocket::disconnected, this,
        [this] {
            const SocketKeeper::Scope scope(m_sockets);
            emit disconnectedFromHost();
        },
        Qt::DirectConnection);
    if (m_serving)
        connect(socket, &QTcpSocket::bytesWritten, this, &NetworkConnection::onBytesWritten);
    connect(socket, &QTcpSocket::errorOccurred, this, &NetworkConnection::onSocketError);
}

void NetworkConnection::onTcpConnected()
{
    PeerWatch::noticeSilentLoss(*m_tcpSocket);
    m_uniqueConnectionId = connectionId(m_tcpSocket->peerAddress(), m_tcpSocket->peerPort());
    m_localId = connectionId(m_tcpSocket->localAddress(), m_tcpSocket->localPort());
}

/// Takes @p socket, which may be null, for the TCP socket, and drops the one before. Its signal
/// disconnected() stays wired: whoever mirrors the peer's state has to learn that the connection is lost,
/// also when it is this side that gives it up. They may do anything, so this object may be gone afterwards.
void NetworkConnection::replaceTcpSocket(QTcpSocket* socket)
{
    m_tcpStream.clear();
    if (socket)
        wireTcpSocket(socket);
    if (QTcpSocket* const previous = std::exchange(m_tcpSocket, socket))
        m_sockets.drop(previous);
}

bool NetworkConnection::canWriteTcp() const
{
    return m_tcpSocket && m_tcpSocket->isWritable();
}

template<typename Packet>
void NetworkConnection::sendRegistration(RawDataPacket::PacketIdentifier identifier)
{
    if (identifier == RawDataPacket::PID_SERIALISABLE_DATA || !isConnectedToHost())
        return;
    const quint32 localAddress = m_tcpSocket->localAddress().toIPv4Address();
    if (localAddress == 0)
        return;
    Packet(identifier, localAddress, static_cast<quint16>(m_udpPort))
        .serialisePacketAndWriteToDevice(*m_tcpSocket);
    m_tcpSocket->flush();
}

/// Takes in about kUdpIntakeLimit bytes and throws the rest away, so that a flood cannot starve the event
/// loop.
void NetworkConnection::receiveDatagrams()
{
    const auto read = [this](char* data, qint64 maxSize) { return m_udpSocket->readDatagram(data, maxSize); };
    qint64 total = 0;
    while (m_udpSocket->hasPendingDatagrams()) {
        const qint64 size = m_udpStream.append(kUdpIntakeLimit, read);
        if (size < 0)
            return;
        total += size;
        if (total > kUdpIntakeLimit) {
            discardPendingDatagrams();
            return;
        }
    }
}

void NetworkConnection::discardPendingDatagrams()
{
    for (int i = 0; i < kMostDiscardedDatagrams && m_udpSocket->hasPendingDatagrams(); ++i) {
        if (m_udpSocket->readDatagram(nullptr, 0) < 0) {
            static LogThrottle throttle;
            throttle.log(spdlog::level::err, "Failed to discard unwanted UDP datagram");
            return;
        }
    }
}

void NetworkConnection::handleTcpFrame(FrameScanner& frame)
{
    switch (frame.header().packetIdentifier) {
    case RawDataPacket::PID_SERIALISABLE_DATA:
        handleSerialisablePacket(frame);
        return;
    case RawDataPacket::PID_REGISTER_RAW_DATA:
        addRequest(RegisterRawDataPacket(frame.frame(), frame.header()));
        return;
    case RawDataPacket::PID_DEREGISTER_RAW_DATA:
        removeRequest(DeregisterRawDataPacket(frame.frame(), frame.header()));
        return;
    default: {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err,
                     "Discarding unexpected raw data packet on datacore TCP connection! packetIdentifier: {}",
                     quint16{frame.header().packetIdentifier});
    }
    }
}

void NetworkConnection::handleUdpFrame(FrameScanner& frame)
{
    if (frame.header().packetIdentifier == RawDataPacket::PID_SERIALISABLE_DATA) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err,
                     "Discarding unexpected datacore (PID_SERIALISABLE_DATA) data packet on UDP socket!");
        return;
    }
    deliver(frame);
}

void NetworkConnection::handleSerialisablePacket(FrameScanner& frame)
{
    if (m_serving)
        emit serialisablePacketReceived(
            std::make_shared<const SerialisableDataPacket>(frame.frame(), frame.header()));
    else
        deliver(frame);
}

/// Makes a packet of the frame, once for all receivers and only when there are some.
void NetworkConnection::deliver(FrameScanner& frame)
{
    const auto identifier = frame.header().packetIdentifier;
    const auto& registry = RawDataPacketRegistry::getInstance();
    if (!registry.hasReceivers(identifier))
        return;
    const std::shared_ptr<const RawDataPacket> packet =
        RawDataPacketFactory::createPacket(frame.frame(), frame.header());
    if (!packet) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "Failed to create RawDataPacket with packetId={} for receiver",
                     quint16{identifier});
        return;
    }
    registry.deliver(identifier, packet);
}

void NetworkConnection::addRequest(const RegistrationRawDataPacket& request)
{
    if (m_rawDataPort == 0) {
        m_rawDataAddress = request.getDstAddr();
        m_rawDataPort = request.getDstPort();
    }
    m_requestedRawDataPacketIds.insert(request.getRawDataPacketID());
    emit rawDataRequested(request);
}

void NetworkConnection::removeRequest(const RegistrationRawDataPacket& request)
{
    m_requestedRawDataPacketIds.erase(request.getRawDataPacketID());
    emit rawDataCancelled(request);
}

/// Made for the first packet that is really sent: a server that streams to many clients by a socket of its
/// own never needs it.
void NetworkConnection::openSendingSocket()
{
    m_udpSocket = new QUdpSocket(this);
    m_udpSocket->connectToHost(QHostAddress(m_rawDataAddress), m_rawDataPort);
}
