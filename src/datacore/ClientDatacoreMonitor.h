#pragma once

#include <QObject>

class ClientDatacore;
class NetworkConnection;

/// Sends local changes of mirrored nodes to the server.
class ClientDatacoreMonitor : public QObject {
    Q_OBJECT
public:
    ClientDatacoreMonitor(NetworkConnection& connection, QObject* parent = nullptr);

public slots:
    /// Sends the node's value as write @p packetId, if the node has been changed directly.
    void onClientDatacoreUpdated(int packetId, ClientDatacore* datacore);

private:
    NetworkConnection& m_connection;
};
