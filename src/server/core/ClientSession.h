#pragma once

#include "network/NetworkConnection.h"
#include "server/core/FaultPlan.h"
#include "server/core/RawDataStreamer.h"

#include <QObject>

#include <memory>
#include <set>
#include <utility>

class QTcpSocket;
class SerialisableDataPacket;

namespace Velmora::Server {

/// One client of the instrument: its connection, what it has asked for, and its limits.
class ClientSession : public QObject {
    Q_OBJECT
public:
    /// Bytes that may wait for a client to read them. Beyond, it is given up, for it must hold up nobody.
    static constexpr qint64 kSendQueueLimit = 16 * 1024 * 1024;
    /// Requests for raw data, far more than there are kinds of it.
    static constexpr size_t kMostRequests = 256;

    ClientSession(std::unique_ptr<QTcpSocket> socket, RawDataStreamer& streamer, const FaultPlan& faults,
                  unsigned seed, QObject* parent);
    /// Takes back all requests of the client.
    ~ClientSession() override;

    /// The peer's address and port for log lines.
    QString name() const { return m_name; }
    /// The peer's address alone.
    QString address() const { return m_name.section(QLatin1Char(':'), 0, -2); }
    /// The identity by which the client signs its writes.
    QString clientId() const { return m_connection.getUniqueConnectionID(); }

    /// Whether a packet is on its way at once, or may wait for others to make few large writes of them.
    enum class Sending { AtOnce, Queued };

    /// Sends the packet to this client only. The order of packets is kept, however they are sent.
    void send(const SerialisableDataPacket& packet, Sending sending = Sending::AtOnce);

signals:
    /// The client has sent a packet. Answers to it go through send() of the same session.
    void packetReceived(const std::shared_ptr<const SerialisableDataPacket>& packet);
    /// The connection is over. Emitted once; the session is to be deleted later.
    void ended();

private:
    using Request = std::pair<RawDataPacket::PacketIdentifier, RawDataDestination>;

    void write(const SerialisableDataPacket& packet, Sending sending);
    void onRawDataRequested(const RegistrationRawDataPacket& registration);
    void onRawDataCancelled(const RegistrationRawDataPacket& registration);
    bool isAllowed(const Request& request) const;
    void takeBackRequests();
    void end();

    RawDataStreamer& m_streamer;
    FaultInjector m_faults;
    NetworkConnection m_connection;
    QString m_name;
    std::set<Request> m_requests;
    int m_packetsSent = 0;
    bool m_ended = false;
};

} // namespace Velmora::Server
