#include "datacore/ClientDatacoreRegistry.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreMonitor.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/NetworkConnection.h"

#include <memory>
#include <utility>
#include <vector>

using Velmora::LogThrottle;

/// Owns the nodes of one population, so that all of them can be left to the event loop at once.
class ClientDatacoreRegistry::Nodes : public QObject {
public:
    using QObject::QObject;
    std::vector<std::unique_ptr<ClientDatacore>> all;
};

ClientDatacoreRegistry::ClientDatacoreRegistry(NetworkConnection& connection, QObject* parent)
    : QObject(parent)
    , m_nodes(new Nodes(this))
{
    connect(&connection, &NetworkConnection::disconnectedFromHost, this,
            &ClientDatacoreRegistry::onDisconnectedFromServer);
}

ClientDatacoreRegistry::~ClientDatacoreRegistry() = default;

QStringList ClientDatacoreRegistry::getPaths() const
{
    QStringList paths = m_datacores.keys();
    paths.sort();
    return paths;
}

bool ClientDatacoreRegistry::registerDatacore(const QString& path, ClientDatacore* datacore)
{
    ClientDatacore*& place = m_datacores[path];
    if (place) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "ClientDatacoreRegistry: Cannot create two cores for path '{}'.",
                     path);
        return false;
    }
    place = datacore;
    m_nodes->all.emplace_back(datacore);
    return true;
}

void ClientDatacoreRegistry::populateRegistry(const QStringList& paths, const ClientDatacoreMonitor& monitor)
{
    m_datacores.reserve(m_datacores.size() + paths.size());
    for (const QString& path : paths) {
        std::unique_ptr<ClientDatacore> datacore(ClientDatacore::makeClientDatacoreRoot(path));
        if (!registerDatacore(path, datacore.get()))
            continue;
        connect(datacore.release(), &ClientDatacore::clientDatacoreHasUpdateForServer, &monitor,
                &ClientDatacoreMonitor::onClientDatacoreUpdated);
    }
    emit registryHasBeenPopulated();
}

void ClientDatacoreRegistry::clearRegistry()
{
    m_datacores.clear();
    Nodes* const old = std::exchange(m_nodes, new Nodes(this));
    for (const auto& datacore : old->all)
        disconnect(datacore.get(), &ClientDatacore::clientDatacoreHasUpdateForServer, nullptr, nullptr);
    old->deleteLater();
    emit registryHasBeenCleared();
}

void ClientDatacoreRegistry::onDisconnectedFromServer()
{
    clearRegistry();
}

void ClientDatacoreRegistry::requestLookupDatacoreFromPath(const QString& path) const
{
    emit lookupRequestResult(lookupDatacoreFromPath(path));
}
