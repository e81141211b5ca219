#pragma once

#include "app/SfpIpAddressDialogManager.h"
#include "app/core/MappedProgramArgs.h"
#include "datacore/DatacoreGuiConnectionsManager.h"
#include "datacore/DatacoreModelConnectionsManager.h"
#include "datacore/WzClientDatacoreManager.h"
#include "gui/framework/ApplicationState.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/WzClientNetworkManager.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"
#include "presets/WzClientPresetManager.h"
#include "remote/RemoteDesk.h"

#include <QApplication>
#include <QThread>

class ClientDatacoreManipulator;
class ConsolePort;
class ConsoleServer;
class WzExternalApi;

/// A client with widgets: the network, the datacores and the managers between them and the user interface.
class WzClientApplicationBase : public QApplication {
    Q_OBJECT
public:
    WzClientApplicationBase(int& argc, char** argv);
    ~WzClientApplicationBase() override;

    /// The running application; null when it is of another kind.
    static WzClientApplicationBase* getInstance();

    /// By which windows choose their sizes.
    virtual int clientType() const = 0;

    const MappedProgramArgs& getProgramArgs() const { return m_programArgs; }
    SerialisableDataPacketDistributor& getDistributor() { return m_distributor; }
    WzClientNetworkManager& getNetworkManager() { return m_networkManager; }
    WzClientDatacoreManager& getDatacoreManager() { return m_datacoreManager; }
    WzClientSequencePackagedLogPacketHandler& getLogPacketHandler() { return m_logPacketHandler; }
    WzExternalApi& getExternalApi() { return *m_externalApi; }
    RemoteDesk& getRemoteDesk() { return m_remoteDesk; }
    /// Both on the thread of the external interface.
    ConsoleServer& getConsoleServer() { return *m_consoleServer; }
    ConsolePort& getConsolePort() { return *m_consolePort; }
    DatacoreGuiConnectionsManager& getGuiConnections() { return m_guiConnections; }
    DatacoreModelConnectionsManager& getModelConnections() { return m_modelConnections; }
    SfpIpAddressDialogManager& getSfpIpAddressDialogManager() { return m_sfpIpAddressDialogManager; }
    WzClientPresetManager& getPresetManager() { return m_presetManager; }

private:
    MappedProgramArgs m_programArgs;
    SerialisableDataPacketDistributor m_distributor;
    WzClientNetworkManager m_networkManager;
    WzClientDatacoreManager m_datacoreManager;
    WzClientSequencePackagedLogPacketHandler m_logPacketHandler;
    WzExternalApi* m_externalApi; ///< lives on its thread and is deleted when that has ended
    ClientDatacoreManipulator* m_datacoreManipulator; ///< child of the external interface
    ConsoleServer* m_consoleServer; ///< as these two
    ConsolePort* m_consolePort;
    RemoteDesk m_remoteDesk;
    QThread m_externalApiThread;
    DatacoreGuiConnectionsManager m_guiConnections;
    DatacoreModelConnectionsManager m_modelConnections;
    SfpIpAddressDialogManager m_sfpIpAddressDialogManager;
    WzClientPresetManager m_presetManager;
};
