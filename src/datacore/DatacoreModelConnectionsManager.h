#pragma once

#include "datacore/DatacoreConnectionsManager.h"

/// The connection builders of data models. Which there are is known to the application, which adds them.
class DatacoreModelConnectionsManager : public DatacoreConnectionsManager {
    Q_OBJECT
public:
    explicit DatacoreModelConnectionsManager(ClientDatacoreRegistry& registry, QObject* parent = nullptr);
};
