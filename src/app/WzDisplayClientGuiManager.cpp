#include "app/WzDisplayClientGuiManager.h"

#include "app/StartupTrace.h"
#include "app/WzDisplayClientApplication.h"
#include "datacore/ClientDatacore.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/ConsoleLog.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/DriverCalibrationState.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/shell/ToolBar.h"
#include "gui/shell/UndoStep.h"
#include "gui/style/WzCustomStyle.h"
#include "instruments/Catalogue.h"
#include "instruments/eventlog/EventLog.h"
#include "remote/ConsolePort.h"
#include "remote/WzExternalApi.h"

#include <QFileInfo>
#include <QHostAddress>
#include <QScreen>
#include <QStandardPaths>
#include <QTimerEvent>

namespace {

constexpr int kProgressMs = 100;

QString presetFilePath(const MappedProgramArgs& args)
{
    const QString given = args.getValueForKey(QStringLiteral("presetFile"));
    return !given.isEmpty() ? given
                            : QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
            + QLatin1String("/wz_displayclient/state.json");
}

} // namespace

WzDisplayClientGuiManager::WzDisplayClientGuiManager(WzDisplayClientApplication& application,
                                                     DatacoreGuiConnectionsManager& guiConnections,
                                                     DatacoreModelConnectionsManager& modelConnections,
                                                     WzClientSequencePackagedLogPacketHandler& logHandler,
                                                     WzClientNetworkManager& networkManager)
    : m_application(application)
    , m_networkManager(networkManager)
    , m_state(application.clientType())
    , m_services{application.getDatacoreManager().getClientDatacoreRegistry(),
                 guiConnections,
                 modelConnections,
                 logHandler,
                 Velmora::Wz::Device::full(),
                 m_events,
                 m_figures}
    , m_catalogue(m_services.device)
    , m_presetHelper(application.getDistributor())
    , m_stateKeeper(presetFilePath(application.getProgramArgs()), application.getPresetManager(),
                    networkManager)
    , m_connectionSettings(presetFilePath(application.getProgramArgs()))
{
    m_presetHelper.setOrderFolder(QFileInfo(presetFilePath(application.getProgramArgs())).absolutePath());
    connect(&m_stateKeeper, &StateKeeper::restoreWanted, this, &WzDisplayClientGuiManager::showState);
    connect(&m_stateKeeper, &StateKeeper::saveLastKnownStateRequested, this,
            &GuiManagerBase::saveLastKnownStateRequested);
    followConnection();
    m_figures.follow(networkManager, application.getDatacoreManager());
    followEvents(logHandler, networkManager);
}

WzDisplayClientGuiManager::~WzDisplayClientGuiManager()
{
    // Windows tell of their end, and who hears of it uses members that would be gone by then.
    m_mainWindow.reset();
}

MainWindowBase* WzDisplayClientGuiManager::mainWindow() const
{
    return m_mainWindow.get();
}

void WzDisplayClientGuiManager::followConnection()
{
    connect(&m_networkManager, &WzClientNetworkManager::newHostAddressSet, &m_connection,
            &ConnectionStatus::setAddress);
    connect(&m_networkManager, &WzClientNetworkManager::newAutoConnectStateSet, &m_connection,
            &ConnectionStatus::setAutoConnect);
    connect(&m_networkManager, &WzClientNetworkManager::connectedToServer, &m_connection,
            &ConnectionStatus::noteConnected);
    connect(&m_networkManager, &WzClientNetworkManager::connectionToServerLost, &m_connection,
            &ConnectionStatus::noteLost);
    connect(&m_networkManager, &WzClientNetworkManager::reconnectAttemptFailed, &m_connection,
            &ConnectionStatus::noteFailedAttempt);
    connect(&m_networkManager, &WzClientNetworkManager::connectedToServer, this,
            [this] { m_progressTimer.start(kProgressMs, this); });
    connect(&m_networkManager, &WzClientNetworkManager::connectionToServerLost, this,
            [this] { m_progressTimer.stop(); });
}

void WzDisplayClientGuiManager::followEvents(WzClientSequencePackagedLogPacketHandler& logHandler,
                                             WzClientNetworkManager& networkManager)
{
    using Handler = WzClientSequencePackagedLogPacketHandler;
    connect(&networkManager, &WzClientNetworkManager::connectedToServer, &m_events,
            &EventLogModel::onConnected);
    connect(&logHandler, &Handler::resetEventLog, &m_events, &EventLogModel::onResetEventLog);
    connect(&logHandler, &Handler::newLogEvent, &m_events, &EventLogModel::onNewEvent);
    connect(&logHandler, &Handler::requestedLogEvent, &m_events, &EventLogModel::onRequestedEvent);
}

void WzDisplayClientGuiManager::connectEventsWithToolBar()
{
    ToolBar& toolBar = m_mainWindow->toolBar();
    connect(&m_events, &EventLogModel::unseenCountChanged, &toolBar, &ToolBar::setUnseenEvents);
    toolBar.setUnseenEvents(m_events.unseenCount());
    connect(&toolBar, &ToolBar::eventLogRequested, this, [this] {
        if (const auto* const kind = m_catalogue.find(QString(EventLog::kTitle),
                                                      QString(EventLog::kClassName), WindowRole::System))
            m_catalogue.request(*kind);
    });
}

void WzDisplayClientGuiManager::connectConnectionDialog()
{
    const ScreenPanels* const panels = &m_mainWindow->panels();
    connect(panels, &ScreenPanels::connectRequested, this, [this](const QString& address, bool autoConnect) {
        m_networkManager.configureConnectionToServer(QHostAddress(address), autoConnect);
        m_connectionSettings.save({address, autoConnect});
        m_networkManager.connectNow();
    });
    connect(panels, &ScreenPanels::aboutToPowerOff, &m_stateKeeper, &StateKeeper::save);
    connect(&m_mainWindow->toolBar(), &ToolBar::clockTicked, &m_stateKeeper, &StateKeeper::onTick);
    connect(panels, &ScreenPanels::disconnectRequested, this, [this] {
        m_networkManager.giveUp();
        m_connection.noteGivenUp();
    });
}

void WzDisplayClientGuiManager::connectRemoteControl()
{
    m_application.getRemoteDesk().setExecutor(&m_mainWindow->commands());
    const ConsoleLog* const console = &m_mainWindow->panels().console();
    const ConsolePort* const port = &m_application.getConsolePort();
    connect(console, &ConsoleLog::entered, port, &ConsolePort::submit);
    connect(port, &ConsolePort::answerLine, console, &ConsoleLog::addAnswerLine);
    connect(port, &ConsolePort::answerEnd, console, &ConsoleLog::endAnswer);
}

void WzDisplayClientGuiManager::connectDriverCalibration()
{
    using Api = WzExternalApi;
    using Progress = Api::DriverCalibrationProgress;
    Api* const api = &m_application.getExternalApi();
    DriverCalibrationState* const state = &m_mainWindow->panels().driverCalibration();
    connect(state, &DriverCalibrationState::startRequested, api,
            [api](Velmora::Types::OutputSpigot output) { api->startDriverCalibration(output, 0); });
    connect(state, &DriverCalibrationState::cancelRequested, api, &Api::cancelDriverCalibration);
    connect(api, &Api::driverCalibrationEnded, state,
            [state](Velmora::Types::OutputSpigot output, bool, const QString& text) {
                state->noteEnded(output, text);
            });
    connect(api, &Api::driverCalibrationProgressUpdated, state,
            [state](Progress progress, Velmora::Types::OutputSpigot output, double gain, double amplitude) {
                if (progress == Progress::Started)
                    state->noteStarted(output);
                else if (progress == Progress::Measuring)
                    state->noteReading(output, gain, amplitude);
                else if (progress == Progress::Failed)
                    state->noteFailed(output);
            });
}

void WzDisplayClientGuiManager::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_progressTimer.timerId())
        countReceivedNodes();
}

void WzDisplayClientGuiManager::countReceivedNodes()
{
    const QStringList paths = m_services.registry.getPaths();
    int received = 0;
    for (const QString& path : paths) {
        if (m_services.registry.lookupDatacoreFromPath(path)->hasValueOfServer())
            ++received;
    }
    m_connection.setProgress(received, paths.size());
    if (m_connection.state() == ConnectionStatus::State::Connected)
        m_progressTimer.stop();
}

void WzDisplayClientGuiManager::initialiseGui(bool fullScreen)
{
    addInstruments(m_catalogue, m_services);
    StartupTrace::step("catalogue filled");
    m_mainWindow = std::make_unique<DisplayMainWindow>(m_state, m_connection, *m_application.getWzStyle(),
                                                       m_services.guiConnections, m_catalogue);
    connect(m_mainWindow.get(), &DisplayMainWindow::quitRequested, &m_application, &QCoreApplication::quit);
    connect(m_mainWindow.get(), &DisplayMainWindow::firstFramePainted, this,
            [] { StartupTrace::step("first frame painted"); });
    connect(&m_application, &QCoreApplication::aboutToQuit, &m_stateKeeper, &StateKeeper::finish);
    connectEventsWithToolBar();
    connectConnectionDialog();
    connectPresets();
    connectRemoteControl();
    connectDriverCalibration();
    m_application.getSfpIpAddressDialogManager().setPanels(m_mainWindow->panels());
    showMainWindow(fullScreen);
    StartupTrace::step("main window shown");
    restoreState();
    StartupTrace::step("state restored");
}

void WzDisplayClientGuiManager::showMainWindow(bool fullScreen)
{
    const bool windowed =
        m_application.getProgramArgs().getValueForKey(QStringLiteral("windowed")) == QLatin1String("true");
    // A smaller desktop shows less of the grid; what does not fit comes back on a larger one.
    m_mainWindow->resize(kDesignSize.boundedTo(m_mainWindow->screen()->availableSize()));
    if (fullScreen && !windowed)
        m_mainWindow->showFullScreen();
    else
        m_mainWindow->show();
    // A bare display has no window manager that would give it the keys, without which function keys are dead.
    m_mainWindow->activateWindow();
}

void WzDisplayClientGuiManager::restoreState()
{
    if (auto preset = m_stateKeeper.loadFile())
        showState(*preset);
    else
        openFirstWindows();
    m_stateKeeper.start();
}

void WzDisplayClientGuiManager::connectPresets()
{
    PresetRequests* const requests = &m_mainWindow->panels().presets();
    WzClientPresetManager* const manager = &m_application.getPresetManager();
    requests->follow(m_presetHelper);
    connect(requests, &PresetRequests::createWanted, this, &GuiManagerBase::userPresetCreationRequested);
    connect(requests, &PresetRequests::overwriteWanted, this, &GuiManagerBase::userPresetUpdateRequested);
    connect(requests, &PresetRequests::loadWanted, this, &GuiManagerBase::userPresetLoadRequested);
    connect(requests, &PresetRequests::renameWanted, this, &GuiManagerBase::userPresetRenameRequested);
    connect(requests, &PresetRequests::deleteWanted, this, &GuiManagerBase::userPresetDeleteRequested);
    connect(requests, &PresetRequests::fetchWanted, manager, &WzClientPresetManager::fetchPreset);
    connect(requests, &PresetRequests::storeWanted, manager, &WzClientPresetManager::storePreset);
    connect(manager, &WzClientPresetManager::presetFetched, requests, &PresetRequests::onPresetFetched);
    connect(manager, &WzClientPresetManager::answered, requests, &PresetRequests::onAnswered);
}

/// What is shown where nothing was saved: each instrument once, as far as the screen has room.
void WzDisplayClientGuiManager::openFirstWindows()
{
    constexpr std::size_t kRoom = 4;
    const auto& kinds = m_catalogue.getAvailableSubWindows();
    for (std::size_t i = 0; i < std::min(kRoom, kinds.size()); ++i)
        m_catalogue.request(kinds[i]);
}

void WzDisplayClientGuiManager::onPopulateClientPreset(WzClientPreset& preset)
{
    m_application.getWzStyle()->onPopulateClientPreset(preset);
    m_stateKeeper.onPopulateClientPreset(preset);
    if (!m_mainWindow)
        return;
    m_mainWindow->windows().onPopulateClientPreset(preset);
    m_mainWindow->onPopulateClientPreset(preset);
}

void WzDisplayClientGuiManager::onLoadClientPreset(WzClientPreset& preset)
{
    const WzClientPreset before = m_application.getPresetManager().gatherPreset();
    showState(preset);
    if (!m_mainWindow)
        return;
    m_mainWindow->undoStep().offer(tr("Loaded preset \"%1\"").arg(preset.getPresetName()), [this, before] {
        WzClientPreset taken = before;
        showState(taken);
        m_mainWindow->panels().presets().forgetCurrent();
    });
}

void WzDisplayClientGuiManager::showState(WzClientPreset& preset)
{
    m_application.getWzStyle()->onLoadClientPreset(preset);
    if (m_mainWindow)
        m_mainWindow->onLoadClientPreset(preset);
}
