#include "app/WzDisplayClientApplication.h"

#include "app/StartupTrace.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"
#include "instruments/diagnostics/DrawClock.h"
#include "instruments/diagnostics/LoopWatch.h"
#include "network/ClientConstants.h"
#include "remote/ConsoleProtocol.h"
#include "remote/ConsoleServer.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QHostAddress>
#include <QToolTip>

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

namespace {

/// The address given on the command line; null when there is none.
QHostAddress givenServerAddress(const MappedProgramArgs& args)
{
    const QString given = args.getValueForKey(QStringLiteral("server"));
    const QHostAddress address(given);
    if (address.isNull() && !given.isEmpty())
        Velmora::log()->warn("\"{}\" is no address: the default one is used", given);
    return address;
}

} // namespace

WzDisplayClientApplication::WzDisplayClientApplication(int& argc, char** argv)
    : WzClientApplicationBase(argc, argv)
    , m_guiManager(std::make_unique<WzDisplayClientGuiManager>(
          *this, getGuiConnections(), getModelConnections(), getLogPacketHandler(), getNetworkManager()))
{
    installEventFilter(this);
    connectPresets();
}

WzDisplayClientApplication::~WzDisplayClientApplication() = default;

bool WzDisplayClientApplication::notify(QObject* receiver, QEvent* event)
{
    const LoopWatch::Scope scope;
    if (event->type() != QEvent::Paint || !DrawClock::getInstance().isRunning())
        return WzClientApplicationBase::notify(receiver, event);
    QElapsedTimer time;
    time.start();
    const bool handled = WzClientApplicationBase::notify(receiver, event);
    DrawClock::getInstance().note(receiver, std::chrono::nanoseconds(time.nsecsElapsed()));
    return handled;
}

void WzDisplayClientApplication::connectPresets()
{
    WzClientPresetManager* const presets = &getPresetManager();
    WzDisplayClientGuiManager* const gui = m_guiManager.get();
    connect(presets, &WzClientPresetManager::populateClientPreset, gui,
            &GuiManagerBase::onPopulateClientPreset, Qt::DirectConnection);
    connect(presets, &WzClientPresetManager::loadClientPreset, gui, &GuiManagerBase::onLoadClientPreset,
            Qt::DirectConnection);
    connect(presets, &WzClientPresetManager::doNotDisturbChanged, &gui->applicationState(),
            &ApplicationState::setDoNotDisturb);
    connect(gui, &GuiManagerBase::userPresetCreationRequested, presets,
            &WzClientPresetManager::onCreatePresetRequested, Qt::DirectConnection);
    connect(gui, &GuiManagerBase::userPresetUpdateRequested, presets,
            &WzClientPresetManager::onModifyPresetRequested, Qt::DirectConnection);
    connect(gui, &GuiManagerBase::userPresetLoadRequested, presets,
            &WzClientPresetManager::onLoadPresetRequested, Qt::DirectConnection);
    connect(gui, &GuiManagerBase::userPresetRenameRequested, presets,
            &WzClientPresetManager::onRenamePresetRequested, Qt::DirectConnection);
    connect(gui, &GuiManagerBase::userPresetDeleteRequested, presets,
            &WzClientPresetManager::onDeletePresetRequested, Qt::DirectConnection);
    connect(gui, &GuiManagerBase::saveLastKnownStateRequested, presets,
            &WzClientPresetManager::onSaveLastKnownStateRequested, Qt::DirectConnection);
}

MainWindowBase* WzDisplayClientApplication::getMainWindowBase() const
{
    return m_guiManager->mainWindow();
}

WzCustomStyle* WzDisplayClientApplication::getWzStyle() const
{
    return qobject_cast<WzCustomStyle*>(style());
}

void WzDisplayClientApplication::initialise(bool fullScreen)
{
    initiateFonts();
    QFont applicationFont = font();
    applicationFont.setPointSize(getWzStyle()->applicationFontPointSize());
    setFont(applicationFont);
    QToolTip::setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    StartupTrace::step("fonts");
    m_guiManager->initialiseGui(fullScreen);
    StartupTrace::step("user interface built");
    connectToServer();
    openConsole();
}

/// Last, so that who finds it finds a screen.
void WzDisplayClientApplication::openConsole()
{
    const QString given = getProgramArgs().getValueForKey(QStringLiteral("console"));
    const QString path =
        given.isEmpty() ? ConsoleProtocol::defaultSocketPath() : QFileInfo(given).absoluteFilePath();
    ConsoleServer* const server = &getConsoleServer();
    QMetaObject::invokeMethod(server, [server, path] { server->listen(path); });
}

/// The first attempt follows only later, so that an address that replaces the default one costs nothing.
void WzDisplayClientApplication::connectToServer()
{
    WzClientNetworkManager& network = getNetworkManager();
    network.configureConnectionToServer(ClientConstantsFactory::instance()->getDefaultWzServerAddress(),
                                        true);
    const QHostAddress given = givenServerAddress(getProgramArgs());
    const auto chosen = m_guiManager->connectionSettings().load();
    if (!given.isNull())
        network.configureConnectionToServer(given, true);
    else if (chosen)
        network.configureConnectionToServer(QHostAddress(chosen->address), chosen->autoConnect);
}
