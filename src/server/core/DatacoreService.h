#pragma once

#include "server/core/InstrumentTrees.h"

#include <QObject>

#include <functional>
#include <list>
#include <map>

class DatacorePacket;
class SerialisableDataPacket;

namespace Velmora::Server {

class ClientSession;
class InstrumentServer;

/// Announces the instrument's trees to each client that connects, applies what clients write, and tells all
/// of them of every change.
///
/// A write is echoed with its writer's identity and number: to all when it was applied, also when that has
/// made the node invalid; to the writer alone, with the value that stands, when it was refused.
class DatacoreService : public QObject {
    Q_OBJECT
public:
    DatacoreService(InstrumentServer& server, InstrumentTrees& trees, QObject* parent = nullptr);

    /// Begins to serve the clients that connect from now on, with the nodes that the trees have by now.
    void start();

    /// What a node does when a client has written a valid value into it.
    using Effect = std::function<void()>;
    void onWritten(const DatacoreBase& node, Effect effect);

    /// Within an effect: the client that has written; null outside.
    ClientSession* writer() const { return m_writer; }
    /// Writes into a configuration element as a client would, and lets it act. False, and all is as before,
    /// when the value would be invalid.
    bool set(DatacoreBase& node, const QStringList& items);

    /// Sends what the instrument itself has changed since the last call to all clients. What the effect of a
    /// write changes is sent after the write's echo, with or without this call.
    void publishChanges();

signals:
    /// A client has written a valid value, which has taken effect.
    void written(const DatacoreBase* node);

private:
    void announce(ClientSession& session);
    void onPacket(ClientSession& session, const SerialisableDataPacket& packet);
    void write(ClientSession& session, const DatacorePacket& packet);
    void takeEffect(const DatacoreBase& node);
    bool apply(DatacoreBase& node, const DatacorePacket& packet);
    void publish(const std::list<DatacoreBase*>& changed);

    InstrumentServer& m_server;
    InstrumentTrees& m_trees;
    std::map<const DatacoreBase*, Effect> m_effects;
    ClientSession* m_writer = nullptr;
    bool m_inEffect = false;
};

} // namespace Velmora::Server
