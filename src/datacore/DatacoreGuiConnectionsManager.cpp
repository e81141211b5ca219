#include "datacore/DatacoreGuiConnectionsManager.h"

DatacoreGuiConnectionsManager::DatacoreGuiConnectionsManager(ClientDatacoreRegistry& registry,
                                                             QObject* parent)
    : DatacoreConnectionsManager(registry, parent)
{
}
