#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <optional>

class ClientDatacore;
class NetworkConnection;

/// Sends local changes of mirrored nodes to the server.
class ClientDatacoreMonitor : public QObject {
    Q_OBJECT
public:
    ClientDatacoreMonitor(NetworkConnection& connection, QObject* parent = nullptr);

    /// From a write to the echo that settles its node, of the last write that was measured: one at a time.
    std::optional<std::chrono::nanoseconds> lastEchoTime() const { return m_lastEchoTime; }

public slots:
    /// Sends the node's value as write @p packetId, if the node has been changed directly.
    void onClientDatacoreUpdated(int packetId, ClientDatacore* datacore);

private:
    void measureEcho(ClientDatacore& datacore);

    NetworkConnection& m_connection;
    QPointer<ClientDatacore> m_measured; ///< whose echo is waited for
    QElapsedTimer m_sinceWrite;
    std::optional<std::chrono::nanoseconds> m_lastEchoTime;
};
