#pragma once

#include "app/ConnectionSettings.h"
#include "app/GuiManagerBase.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/SupportedSubWindows.h"
#include "instruments/InstrumentServices.h"
#include "instruments/diagnostics/ClientFigures.h"
#include "instruments/eventlog/EventLogModel.h"

#include <QBasicTimer>
#include <QSize>

#include <memory>

class ClientDatacoreRegistry;
class DisplayMainWindow;
class MainWindowBase;
class WzClientNetworkManager;
class WzDisplayClientApplication;

/// Builds the display client's user interface and keeps what all of it shares.
class WzDisplayClientGuiManager : public GuiManagerBase {
    Q_OBJECT
public:
    /// What all sizes are laid out for.
    static constexpr QSize kDesignSize{1920, 1080};

    WzDisplayClientGuiManager(WzDisplayClientApplication& application,
                              DatacoreGuiConnectionsManager& guiConnections,
                              DatacoreModelConnectionsManager& modelConnections,
                              WzClientSequencePackagedLogPacketHandler& logHandler,
                              WzClientNetworkManager& networkManager);
    ~WzDisplayClientGuiManager() override;

    void initialiseGui(bool fullScreen);
    MainWindowBase* mainWindow() const;
    ApplicationState& applicationState() { return m_state; }
    const ConnectionSettings& connectionSettings() const { return m_connectionSettings; }

public slots:
    void onPopulateClientPreset(WzClientPreset& preset) override;
    void onLoadClientPreset(WzClientPreset& preset) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void followConnection();
    void followEvents(WzClientSequencePackagedLogPacketHandler& logHandler,
                      WzClientNetworkManager& networkManager);
    void connectEventsWithToolBar();
    void connectConnectionDialog();
    void connectRemoteControl();
    void connectDriverCalibration();
    void countReceivedNodes();
    void showMainWindow(bool fullScreen);
    void restoreState();
    void openFirstWindows();
    /// Saves in a few seconds: what happens until then is saved with it.
    void scheduleSave();
    void saveState();

    WzDisplayClientApplication& m_application;
    WzClientNetworkManager& m_networkManager;
    ApplicationState m_state;
    ConnectionStatus m_connection;
    EventLogModel m_events;
    ClientFigures m_figures;
    InstrumentServices m_services;
    SupportedSubWindows m_catalogue;
    std::unique_ptr<DisplayMainWindow> m_mainWindow;
    const QString m_presetFile;
    ConnectionSettings m_connectionSettings;
    QBasicTimer m_progressTimer;
    QBasicTimer m_saveTimer;
};
