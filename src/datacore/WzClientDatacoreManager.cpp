#include "datacore/WzClientDatacoreManager.h"

#include "datacore/DatacorePathRadixTreePacket.h"

#include "network/SerialisableDataPacketDistributor.h"

namespace {

void appendPaths(QStringList& paths, const QString& path, const RadixTreeNode& node)
{
    paths.append(path);
    for (const RadixTreeNode& child : node.children)
        appendPaths(paths, path + QLatin1Char('/') + child.name, child);
}

} // namespace

WzClientDatacoreManager::WzClientDatacoreManager(NetworkConnection& connection,
                                                 SerialisableDataPacketDistributor& distributor,
                                                 QObject* parent)
    : QObject(parent)
    , m_distributor(distributor)
    , m_registry(connection)
    , m_populator(connection, m_registry, distributor)
    , m_monitor(connection)
{
    m_distributor.registerPacketAcceptor(this, DatacorePathRadixTreePacket::kClassName);
}

WzClientDatacoreManager::~WzClientDatacoreManager()
{
    m_distributor.deregisterPacketAcceptor(this);
}

bool WzClientDatacoreManager::canAcceptPacket(const QString& className) const
{
    return className == DatacorePathRadixTreePacket::kClassName;
}

void WzClientDatacoreManager::acceptPacket(const SerialisableDataPacket& packet)
{
    if (!m_registry.isEmpty())
        return;
    bool ok = false;
    const auto trees =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<DatacorePathRadixTreePacket>(packet,
                                                                                                       ok);
    if (!ok)
        return;
    m_registry.clearRegistry();
    m_registry.populateRegistry(trees.getAllPaths(), m_monitor);
}

QStringList WzClientDatacoreManager::generateDatacorePathsFromRadixTreeNode(const RadixTreeNode& node) const
{
    QStringList paths;
    appendPaths(paths, node.name, node);
    return paths;
}
