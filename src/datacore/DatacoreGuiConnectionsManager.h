#pragma once

#include "datacore/DatacoreConnectionsManager.h"

/// The connection builders of windows. Which there are is known to the application, which adds them.
class DatacoreGuiConnectionsManager : public DatacoreConnectionsManager {
    Q_OBJECT
public:
    explicit DatacoreGuiConnectionsManager(ClientDatacoreRegistry& registry, QObject* parent = nullptr);
};
