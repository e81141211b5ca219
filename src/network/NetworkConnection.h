#pragma once

#include "network/FrameStream.h"
#include "network/RawDataPacket.h"
#include "network/SerialisableDataPacketAcceptorInterface.h"
#include "network/SocketKeeper.h"
#include "network/Traffic.h"

#include <QAbstractSocket>
#include <QObject>

#include <memory>
#include <set>

class QHostAddress;
class QTcpSocket;
class QUdpSocket;
class RegistrationRawDataPacket;

/// One end of the link between a client and the instrument: a TCP connection that carries framed packets both
/// ways, and a UDP socket for raw data packets, which the client listens on and the serving side sends from.
///
/// Receivers may drop, reconnect, reconfigure or destroy the connection while a packet is delivered to them,
/// and so may whoever hears of a loss. What comes while a receiver runs an event loop is delivered
/// afterwards.
class NetworkConnection : public QObject, public SerialisableDataPacketAcceptorInterface {
    Q_OBJECT
public:
    static constexpr quint16 kServerTcpPort = 29440;
    static constexpr quint16 kClientUdpPort = 29442;

    static constexpr int kConnectTimeoutMs = 500;
    static constexpr qint64 kTcpReadBufferSize = 132000;
    /// Bytes waiting to be sent beyond which the serving side reads no more, so that a client that writes
    /// without reading the answers is held back by its own socket.
    static constexpr qint64 kTcpBacklogLimit = 1024 * 1024;
    /// What queuePacket() collects before it sends.
    static constexpr qint64 kTcpSendPiece = 64 * 1024;
    static constexpr int kUdpReservedBytes = 32768;
    /// Bytes taken from one datagram, and about as many from one notification.
    static constexpr qint64 kUdpIntakeLimit = 16384;
    /// Largest frame waited for, in bytes. The instrument's largest packets are far below.
    static constexpr qint64 kTcpFrameSizeLimit = 64 * 1024 * 1024;
    static constexpr qint64 kUdpFrameSizeLimit = 1024 * 1024;

    /// @p serving tells where serialisable packets go: false, to the process-wide RawDataPacketRegistry;
    /// true, for the instrument's side, only to the signal serialisablePacketReceived(), so that each client
    /// is heard and answered through its own connection.
    explicit NetworkConnection(QObject* parent, bool serving);
    ~NetworkConnection() override;

    /// Connects within 500 ms, blocking. Any connection before is dropped. Returns whether there is a
    /// connection now: none when the peer is found gone again already.
    bool connectToHost(const QString& host, quint16 port);
    bool connectToHost(const QHostAddress& address, quint16 port);
    /// Adopts a connected socket (serving side).
    void connectToHost(std::unique_ptr<QTcpSocket>&& socket);
    void disconnectFromHost();
    bool isConnectedToHost() const;
    /// The peer's address; null without a connection.
    QHostAddress getPeerAddress() const;
    /// Bytes handed over for sending by TCP that the peer has not taken yet.
    qint64 getQueuedBytes() const;

    /// The peer's IPv4 address as one decimal number, directly followed by its port; empty before a
    /// connection.
    QString getUniqueConnectionID() const { return m_uniqueConnectionId; }
    /// The same of the local address and port.
    QString getLocalId() const { return m_localId; }

    bool canAcceptPacket(const QString& className) const override;
    /// Sends the packet by TCP; drops it when there is no connection.
    void acceptPacket(const SerialisableDataPacket& packet) override;
    /// The same for one of many packets in a row. They are sent in large pieces, the last of them together
    /// with whatever follows, or from the event loop.
    void queuePacket(const SerialisableDataPacket& packet);
    /// Sends the packet by UDP, if the peer has registered for its identifier (serving side).
    void sendRawPacket(std::shared_ptr<const RawDataPacket> packet);

    void listenForRawDataPackets(const QHostAddress& address, quint16 port);
    /// The same by a @p socket that is bound already.
    void listenForRawDataPackets(std::unique_ptr<QUdpSocket>&& socket);
    void requestRawDataPacketFromServer(RawDataPacket::PacketIdentifier identifier);
    void cancelRawDataPacketFromServer(RawDataPacket::PacketIdentifier identifier);
    void requestRegisteredRawDataPacketsFromServer();

    const Traffic& traffic() const { return m_traffic; }

    static QString socketErrorAsString(QAbstractSocket::SocketError error);

public slots:
    void onReadyReadTcp();
    void onReadyReadUdp();
    void onSocketError(QAbstractSocket::SocketError error);

signals:
    void disconnectedFromHost();
    /// A serialisable packet of the peer (serving side only).
    void serialisablePacketReceived(const std::shared_ptr<const SerialisableDataPacket>& packet);
    /// The peer asks for raw data packets by UDP, or no longer wants them.
    void rawDataRequested(const RegistrationRawDataPacket& request);
    void rawDataCancelled(const RegistrationRawDataPacket& request);

private:
    void wireTcpSocket(QTcpSocket* socket);
    void onTcpConnected();
    void replaceTcpSocket(QTcpSocket* socket);
    void listenForRawDataPackets(std::unique_ptr<QUdpSocket>&& socket, quint16 port);
    bool canWriteTcp() const;
    bool mustHoldBack();
    void onBytesWritten();
    template<typename Packet>
    void sendRegistration(RawDataPacket::PacketIdentifier identifier);

    void receiveDatagrams();
    void discardPendingDatagrams();
    void handleTcpFrame(FrameScanner& frame);
    void handleUdpFrame(FrameScanner& frame);
    void handleSerialisablePacket(FrameScanner& frame);
    static void deliver(FrameScanner& frame);
    void addRequest(const RegistrationRawDataPacket& request);
    void removeRequest(const RegistrationRawDataPacket& request);
    void openSendingSocket();

    bool m_serving;
    QString m_uniqueConnectionId;
    QString m_localId;
    QTcpSocket* m_tcpSocket = nullptr;
    QUdpSocket* m_udpSocket = nullptr;
    FrameStream m_tcpStream;
    bool m_heldBack = false; ///< there may be bytes to read that were left alone
    FrameStream m_udpStream;
    /// Port listened on for raw data packets; -1 while none is open. Only 16 bits, as the protocol's peers
    /// keep it.
    qint16 m_udpPort = -1;
    std::set<quint16> m_requestedRawDataPacketIds;
    /// Where the peer listens, as its first request said.
    quint32 m_rawDataAddress = 0;
    quint16 m_rawDataPort = 0;
    /// Datagrams came while a receiver of others ran an event loop.
    bool m_datagramsKeptBack = false;
    Traffic m_traffic;
    SocketKeeper m_sockets;
};
