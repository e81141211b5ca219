#include "datacore/DatacoreModelConnectionsManager.h"

DatacoreModelConnectionsManager::DatacoreModelConnectionsManager(ClientDatacoreRegistry& registry,
                                                                 QObject* parent)
    : DatacoreConnectionsManager(registry, parent)
{
}
