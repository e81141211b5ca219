#include "datacore/DatacoreConnectionsManager.h"

DatacoreConnectionsManager::DatacoreConnectionsManager(ClientDatacoreRegistry& registry, QObject* parent)
    : QObject(parent)
    , m_registry(registry)
{
    followTheBuilders();
}

/// Slots are called in the order in which they were connected, so this connects anew behind each new builder.
void DatacoreConnectionsManager::followTheBuilders()
{
    disconnect(m_populated);
    disconnect(m_cleared);
    m_populated = connect(&m_registry, &ClientDatacoreRegistry::registryHasBeenPopulated, this,
                          &DatacoreConnectionsManager::registryHasBeenPopulated);
    m_cleared = connect(&m_registry, &ClientDatacoreRegistry::registryHasBeenCleared, this,
                        &DatacoreConnectionsManager::registryHasBeenCleared);
}
