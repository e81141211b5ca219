#pragma once

#include "server/core/ClientSession.h"
#include "server/core/FaultPlan.h"
#include "server/core/RawDataStreamer.h"

#include <QObject>
#include <QTcpServer>
#include <QTimer>

#include <functional>
#include <map>
#include <vector>

namespace Velmora::Server {

/// The instrument's end of the wire: takes any number of clients and streams raw data to them.
class InstrumentServer : public QObject {
    Q_OBJECT
public:
    explicit InstrumentServer(const FaultPlan& faults = {}, unsigned seed = 1, QObject* parent = nullptr);
    ~InstrumentServer() override;

    /// Starts to listen; false, with the reason in errorString(), when that cannot be done. Port 0 takes a
    /// free one.
    [[nodiscard]] bool listen(const QHostAddress& address, quint16 port = NetworkConnection::kServerTcpPort);
    QString errorString() const { return m_server.errorString(); }
    quint16 port() const { return m_server.serverPort(); }

    RawDataStreamer& streamer() { return m_streamer; }
    int clientCount() const { return static_cast<int>(m_sessions.size()); }

    /// Takes the packets of a class that clients send. Others are reported and dropped.
    using Receiver = std::function<void(ClientSession&, const SerialisableDataPacket&)>;
    void setReceiver(const QString& className, Receiver receiver);

    /// Sends the packet to every client.
    void sendToAll(const SerialisableDataPacket& packet,
                   ClientSession::Sending sending = ClientSession::Sending::AtOnce);

signals:
    void clientConnected(Velmora::Server::ClientSession* session);
    /// The session is deleted when the event loop comes to it.
    void clientEnded(Velmora::Server::ClientSession* session);

private:
    void onNewConnection();
    void onAcceptError();
    void onPacket(ClientSession& session, const SerialisableDataPacket& packet);
    void onSessionEnded(ClientSession* session);

    FaultPlan m_faults;
    unsigned m_seed;
    RawDataStreamer m_streamer;
    QTcpServer m_server;
    QTimer m_acceptPause;
    bool m_acceptFailed = false; ///< reported already, and no client could be taken since
    std::vector<ClientSession*> m_sessions;
    std::map<QString, Receiver> m_receivers; ///< by class name
};

} // namespace Velmora::Server
