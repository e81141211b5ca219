#pragma once

#include "app/core/MappedProgramArgs.h"
#include "datacore/WzClientDatacoreManager.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/WzClientNetworkManager.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"

#include <QCoreApplication>

/// A client without widgets, for programs that need only the network and the datacores. Logs the state of its
/// connection.
class WzClientCoreApplicationBase : public QCoreApplication {
    Q_OBJECT
public:
    WzClientCoreApplicationBase(
        int& argc, char** argv,
        WzClientNetworkManager::RawData rawData = WzClientNetworkManager::RawData::Listen);
    ~WzClientCoreApplicationBase() override;

    const MappedProgramArgs& getProgramArgs() const { return m_programArgs; }
    SerialisableDataPacketDistributor& getDistributor() { return m_distributor; }
    WzClientNetworkManager& getNetworkManager() { return m_networkManager; }
    WzClientDatacoreManager& getDatacoreManager() { return m_datacoreManager; }
    WzClientSequencePackagedLogPacketHandler& getLogPacketHandler() { return m_logPacketHandler; }

public slots:
    /// Points the network manager at the default server, with auto-connect on. To be called from the event
    /// loop: nothing goes to the network before.
    void initialise();

private:
    MappedProgramArgs m_programArgs;
    SerialisableDataPacketDistributor m_distributor;
    WzClientNetworkManager m_networkManager;
    WzClientDatacoreManager m_datacoreManager;
    WzClientSequencePackagedLogPacketHandler m_logPacketHandler;
};
