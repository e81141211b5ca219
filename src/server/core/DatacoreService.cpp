#include "server/core/DatacoreService.h"

#include "datacore/DatacorePacket.h"
#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "server/core/ClientSession.h"
#include "server/core/InstrumentServer.h"

#include <QScopedValueRollback>

namespace Velmora::Server {

DatacoreService::DatacoreService(InstrumentServer& server, InstrumentTrees& trees, QObject* parent)
    : QObject(parent)
    , m_server(server)
    , m_trees(trees)
{
}

void DatacoreService::start()
{
    m_trees.takeChangedNodes();
    for (const auto& node : m_trees.nodes())
        node->resetChangedStatus();
    m_server.setReceiver(
        DatacorePacket::kClassName,
        [this](ClientSession& session, const SerialisableDataPacket& packet) { onPacket(session, packet); });
    connect(&m_server, &InstrumentServer::clientConnected, this,
            [this](ClientSession* session) { announce(*session); });
}

void DatacoreService::onWritten(const DatacoreBase& node, Effect effect)
{
    m_effects[&node] = std::move(effect);
}

void DatacoreService::publishChanges()
{
    if (!m_inEffect)
        publish(m_trees.takeChangedNodes());
}

/// The shape first, then every value.
void DatacoreService::announce(ClientSession& session)
{
    session.send(m_trees.shape(session.clientId()), ClientSession::Sending::Queued);
    for (const auto& node : m_trees.nodes())
        session.send(DatacorePacket::fromNode(*node, node->getPath(), false), ClientSession::Sending::Queued);
}

void DatacoreService::onPacket(ClientSession& session, const SerialisableDataPacket& packet)
{
    if (const auto datacorePacket = DatacorePacket::fromPacket(packet)) {
        write(session, *datacorePacket);
        return;
    }
    static LogThrottle throttle;
    throttle.log(spdlog::level::warn, "Client {} has sent a damaged {}", session.name(),
                 packet.getPacketClassName());
}

void DatacoreService::write(ClientSession& session, const DatacorePacket& packet)
{
    const QString path = packet.getDatacorePath();
    DatacoreBase* const node = m_trees.find(path);
    if (!node) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Client {} writes to {}, which there is not", session.name(), path);
        return;
    }
    std::optional<DatacorePacket::Writer> writer;
    if (packet.containsClientID() && packet.containsPacketID())
        writer = DatacorePacket::Writer{packet.getClientID(), packet.getPacketID()};

    const bool applied = m_trees.isWritable(path) && apply(*node, packet);
    // Before the echo: an effect may change the node once more, or say why the value does not do.
    if (applied) {
        const QScopedValueRollback writing(m_writer, &session);
        takeEffect(*node);
    }
    if (applied && node->isValid())
        emit written(node);
    std::list<DatacoreBase*> changed = m_trees.takeChangedNodes();
    changed.remove(node);
    node->resetChangedStatus();

    const auto echo = DatacorePacket::fromNode(*node, path, false, writer);
    if (applied)
        m_server.sendToAll(echo);
    else
        session.send(echo);
    publish(changed);
}

void DatacoreService::takeEffect(const DatacoreBase& node)
{
    const auto effect = m_effects.find(&node);
    if (effect == m_effects.end() || !node.isValid())
        return;
    const QScopedValueRollback inEffect(m_inEffect, true);
    effect->second();
}

bool DatacoreService::set(DatacoreBase& node, const QStringList& items)
{
    const QStringList before = node.getDataList();
    node.setDataList(items);
    node.revalidateAll();
    const bool taken = node.isValid();
    if (taken) {
        takeEffect(node);
    } else {
        node.setDataList(before);
        node.revalidateAll();
    }
    publishChanges();
    return taken;
}

bool DatacoreService::apply(DatacoreBase& node, const DatacorePacket& packet)
{
    std::list<DatacoreJsonMessage> messages;
    if (packet.populate(node, true, messages)) {
        node.revalidateAll();
        return true;
    }
    for (const DatacoreJsonMessage& message : messages) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "A write to {} is refused: {}", node.getPath(), message.getText());
    }
    return false;
}

void DatacoreService::publish(const std::list<DatacoreBase*>& changed)
{
    for (DatacoreBase* node : changed) {
        node->resetChangedStatus();
        m_server.sendToAll(DatacorePacket::fromNode(*node, node->getPath(), false),
                           ClientSession::Sending::Queued);
    }
}

} // namespace Velmora::Server
