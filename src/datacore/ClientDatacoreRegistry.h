#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

class ClientDatacore;
class ClientDatacoreMonitor;
class NetworkConnection;

/// The mirrored nodes by their path on the server. It owns them.
///
/// A node that is cleared away is not found any more and sends nothing, but it lives on until control is back
/// in the event loop, for the clearing may come out of one of its own signals.
class ClientDatacoreRegistry : public QObject {
    Q_OBJECT
public:
    explicit ClientDatacoreRegistry(NetworkConnection& connection, QObject* parent = nullptr);
    ~ClientDatacoreRegistry() override;

    bool isEmpty() const { return m_datacores.isEmpty(); }
    ClientDatacore* lookupDatacoreFromPath(const QString& path) const { return m_datacores.value(path); }
    /// The paths of all nodes, ascending.
    QStringList getPaths() const;
    /// Takes the node over and returns true; when the path is taken, it is refused with a log line and stays
    /// the caller's.
    bool registerDatacore(const QString& path, ClientDatacore* datacore);
    /// Makes a node for each path, whose changes the @p monitor sends.
    void populateRegistry(const QStringList& paths, const ClientDatacoreMonitor& monitor);
    void clearRegistry();

public slots:
    void onDisconnectedFromServer();
    /// Answers with lookupRequestResult(), also when there is no such node.
    void requestLookupDatacoreFromPath(const QString& path) const;

signals:
    void registryHasBeenPopulated();
    /// The nodes are no longer to be used.
    void registryHasBeenCleared();
    void lookupRequestResult(ClientDatacore* datacore) const;

private:
    class Nodes;

    QHash<QString, ClientDatacore*> m_datacores;
    Nodes* m_nodes;
};
