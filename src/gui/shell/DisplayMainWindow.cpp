#include "gui/shell/DisplayMainWindow.h"

#include "commands/CommandExecutor.h"
#include "gui/control/FunctionBar.h"
#include "gui/control/FunctionController.h"
#include "gui/framework/ApplicationState.h"
#include "gui/framework/ConnectionStatus.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzMdiAreaConnectionBuilder.h"
#include "gui/framework/WzSubWindow.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/ConnectedPanel.h"
#include "gui/shell/KeypadOpener.h"
#include "gui/shell/Notice.h"
#include "gui/shell/PanelKeys.h"
#include "gui/shell/ScreenActions.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/shell/ScreenTriggers.h"
#include "gui/shell/Screenshot.h"
#include "gui/shell/SettingStrip.h"
#include "gui/shell/ToolBar.h"
#include "gui/shell/ToolBarAudioMonitorButton.h"
#include "gui/shell/ToolBarAudioMonitorButtonConnectionBuilder.h"
#include "gui/shell/ToolBarConnectionBuilder.h"
#include "gui/shell/ToolBarHealthAlarmButton.h"
#include "gui/shell/ToolBarHealthAlarmButtonConnectionBuilder.h"
#include "gui/shell/WindowMover.h"
#include "gui/style/WzCustomStyle.h"

#include "datacore/DatacoreGuiConnectionsManager.h"
#include "presets/WzClientPreset.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QWindow>

namespace {

constexpr int kHideAfterMs = 8000;
constexpr QLatin1String kLayoutLockedKey("layoutLocked", 12);
constexpr QLatin1String kCurrentLayoutKey("currentLayout", 13);

QKeySequence combined(Qt::KeyboardModifiers modifiers, Qt::Key key)
{
    return QKeySequence(static_cast<int>(modifiers) | static_cast<int>(key));
}

} // namespace

DisplayMainWindow::DisplayMainWindow(ApplicationState& state, const ConnectionStatus& connection,
                                     WzCustomStyle& style, DatacoreGuiConnectionsManager& connections,
                                     SupportedSubWindows& catalogue)
    : MainWindowBase(state, connection, style)
    , m_commands(new CommandExecutor(connections.registry(), this))
    , m_area(new WzMdiArea(*this, connections.add<WzMdiAreaConnectionBuilder>(), style))
    , m_windows(new WzSubWindowManager(style, connections, *m_area, catalogue, this))
    , m_toolBar(new ToolBar(style, state, connection, this))
    , m_functionBar(new FunctionBar(style, this))
    , m_notice(new Notice(style, this))
    , m_settingStrip(new SettingStrip(style, this))
    , m_panels(new ScreenPanels(*this, connections, catalogue))
    , m_mover(new WindowMover(*this))
    , m_keypads(new KeypadOpener(*this))
{
    setObjectName(QStringLiteral("DisplayMainWindow"));
    new ScreenActions(*this, catalogue);
    setupToolBar(connections);
    setupFunctionBar();
    setupWindows();
    setupKeys();
    updateLayoutInToolBar();
}

DisplayMainWindow::~DisplayMainWindow()
{
    // Before the area's windows go, so that nobody tells of them any more.
    delete m_mover;
    delete m_triggers;
    delete m_windows;
    delete m_area;
}

void DisplayMainWindow::setupToolBar(DatacoreGuiConnectionsManager& connections)
{
    connectNowAndAgain(connections.add<ToolBarConnectionBuilder>(), m_toolBar,
                       &ToolBarConnectionBuilder::connectToolBarToDatacores);
    using MonitorBuilder = ToolBarAudioMonitorButtonConnectionBuilder;
    connectNowAndAgain(connections.add<MonitorBuilder>(), m_toolBar->audioMonitorButton(),
                       &MonitorBuilder::connectToolBarAudioMonitorButtonToDatacores);
    using HealthBuilder = ToolBarHealthAlarmButtonConnectionBuilder;
    connectNowAndAgain(connections.add<HealthBuilder>(), m_toolBar->healthAlarmButton(),
                       &HealthBuilder::connectToolBarHealthAlarmButtonToDatacores);
    connect(m_toolBar, &ToolBar::menuRequested, m_panels, &ScreenPanels::toggleMainMenu);
    connect(m_toolBar, &ToolBar::layoutsRequested, m_panels, &ScreenPanels::openLayouts);
    connect(m_toolBar, &ToolBar::healthRequested, m_panels,
            [this] { m_panels->run(QStringLiteral("health")); });
    connect(m_toolBar, &ToolBar::eventLogRequested, m_panels, &ScreenPanels::closePanel);
    connect(m_toolBar, &ToolBar::connectionRequested, m_panels, &ScreenPanels::openNetworkConnection);
    connect(m_toolBar, &ToolBar::used, this, &DisplayMainWindow::showBars);
    connect(m_area, &WzMdiArea::showToolbarRequested, this, &DisplayMainWindow::showBars);
    // A connection that comes or goes is news for everybody.
    const ConnectionStatus& connection = connectionStatus();
    connect(&connection, &ConnectionStatus::changed, this,
            [this, &connection, known = connection.state()]() mutable {
                if (std::exchange(known, connection.state()) != connection.state())
                    showBars();
            });
}

void DisplayMainWindow::setupFunctionBar()
{
    FunctionController& controller = FunctionController::getInstance();
    controller.setLayoutLocked(applicationState().isLayoutLocked());
    connect(&applicationState(), &ApplicationState::layoutLockChanged, &controller,
            &FunctionController::setLayoutLocked);
    controller.setFunctionBar(m_functionBar);
    connect(m_functionBar, &FunctionBar::used, this, &DisplayMainWindow::showBars);
    connect(&controller, &FunctionController::requestVelmoraMenu, m_panels, &ScreenPanels::toggleMainMenu);
    // A context that comes is to be seen.
    connect(&controller, &FunctionController::canGoBackChanged, this, &DisplayMainWindow::showBars);
    connect(m_settingStrip, &SettingStrip::shown, this, &DisplayMainWindow::placeSettingStrip);
    m_triggers = new ScreenTriggers(*this);
    showBars();
}

void DisplayMainWindow::setupWindows()
{
    connect(m_windows, &WzSubWindowManager::layoutsChanged, this, &DisplayMainWindow::updateLayoutInToolBar);
    connect(m_windows, &WzSubWindowManager::requestCurrentLayoutNotification, this,
            [this](const QString& name, int index, int count, bool switched) {
                updateLayoutInToolBar();
                if (switched)
                    showNotice(QStringLiteral("layouts"), name,
                               tr("%1 of %2").arg(QString::number(index + 1), QString::number(count)));
            });
    // After the notice of a switch, which it takes the place of.
    connect(
        m_windows, &WzSubWindowManager::windowsLeftOut, this,
        [this](const QStringList& titles) {
            showNotice(
                QStringLiteral("status-warning"),
                tr("%1 without %2").arg(m_windows->getCurrentLayoutName(), titles.join(QLatin1String(", "))),
                tr("not known here"));
        },
        Qt::QueuedConnection);
    connect(m_windows, &WzSubWindowManager::screenshotRequested, this, &DisplayMainWindow::takeScreenshot);
    connect(m_area, &WzMdiArea::backgroundTapped, m_panels, &ScreenPanels::toggleMainMenu);
    connect(&wzStyle(), &WzCustomStyle::subWindowSettingsaUpdated, this, [this] {
        update();
        m_area->viewport()->update();
        m_toolBar->update();
    });
}

void DisplayMainWindow::setupKeys()
{
    const auto onKey = [this](const QKeySequence& key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    for (quint32 i = 0; i < FunctionBar::kButtons; ++i) {
        auto* const shortcut = new QShortcut(Qt::Key_F1 + static_cast<int>(i), this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this, i] { pressFunctionButton(i); });
    }
    new PanelKeys(*this);
    const auto onKeyDo = [this, onKey](const QKeySequence& key, CommandExecutor::Command command) {
        onKey(key, [this, command] { m_commands->execute(command); });
    };
    using Command = CommandExecutor::Command;
    onKeyDo(Qt::Key_Tab, Command::NextWindow);
    onKeyDo(combined(Qt::ShiftModifier, Qt::Key_Tab), Command::PreviousWindow);
    onKeyDo(combined(Qt::ControlModifier, Qt::Key_Tab), Command::NextLayout);
    onKeyDo(combined(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_Tab), Command::PreviousLayout);
    onKeyDo(Qt::Key_Space, Command::ToggleFullScreen);
    onKey(combined(Qt::ControlModifier, Qt::Key_L), [this] { m_panels->run(QStringLiteral("lockLayouts")); });
    onKeyDo(Qt::Key_Print, Command::TakeScreenshot);
    // The logo button of the front panel.
    onKeyDo(Qt::Key_Menu, Command::PressLogo);
    onKey(Qt::Key_F11, [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
    onKeyDo(combined(Qt::ControlModifier, Qt::Key_Q), Command::Quit);
}

void DisplayMainWindow::showNotice(const QString& icon, const QString& text, const QString& detail)
{
    m_notice->showMessage(icon, text, detail);
}

void DisplayMainWindow::editSetting(Setting& setting)
{
    m_settingStrip->edit(setting);
}

void DisplayMainWindow::placeSettingStrip()
{
    const int bottom = height() - FunctionBar::kHeight - 2 * FunctionBar::kGap;
    m_settingStrip->move((width() - m_settingStrip->width()) / 2, bottom - m_settingStrip->height());
    m_settingStrip->raise();
}

void DisplayMainWindow::showBars()
{
    for (QWidget* const bar : {static_cast<QWidget*>(m_toolBar), static_cast<QWidget*>(m_functionBar)}) {
        bar->show();
        bar->raise();
    }
    m_hideTimer.start(kHideAfterMs, Qt::CoarseTimer, this);
}

QString DisplayMainWindow::takeScreenshot(QWidget* widget)
{
    const QString subject = widget == this ? m_windows->getCurrentLayoutName() : widget->windowTitle();
    const QString path = Screenshot::save(*widget, subject);
    showNotice(QStringLiteral("screenshot"), path.isEmpty() ? tr("The screenshot could not be saved") : path,
               {});
    return path;
}

void DisplayMainWindow::askBeforeClosingWindows()
{
    m_triggers->askBeforeClosingWindows();
}

void DisplayMainWindow::updateLayoutInToolBar()
{
    m_toolBar->setLayout(m_windows->getCurrentLayoutName(), m_windows->getCurrentWindowLayout(),
                         m_windows->getNumberLayouts());
}

void DisplayMainWindow::pressFunctionButton(quint32 index)
{
    showBars();
    m_functionBar->flash(index);
    FunctionController::getInstance().buttonPressed(index);
}

// --- Saved state

void DisplayMainWindow::onPopulateClientPreset(WzClientPreset& preset) const
{
    DisplayMainWindowSettingsPreset section;
    section.set(kLayoutLockedKey, applicationState().isLayoutLocked());
    section.set(kCurrentLayoutKey, m_windows->getCurrentWindowLayout());
    preset.setDisplayMainWindowSettingsPreset(section);
    m_panels->favourites().onPopulateClientPreset(preset);
}

void DisplayMainWindow::onLoadClientPreset(WzClientPreset& preset)
{
    const auto section = preset.getDisplayMainWindowSettingsPreset();
    if (preset.containsWindowLayoutPresets())
        m_windows->loadWindowLayoutPresets(preset.getWindowLayoutPresets(),
                                           section.get(kCurrentLayoutKey).toInt(-1));
    applicationState().setLayoutLocked(
        section.get(kLayoutLockedKey).toBool(applicationState().isLayoutLocked()));
    m_panels->favourites().onLoadClientPreset(preset);
}

// --- Events

void DisplayMainWindow::resizeEvent(QResizeEvent* event)
{
    MainWindowBase::resizeEvent(event);
    m_area->setGeometry(rect());
    m_toolBar->setGeometry(0, 0, width(), m_toolBar->height());
    m_functionBar->setGeometry(0, height() - m_functionBar->height(), width(), m_functionBar->height());
    m_toolBar->raise();
    m_functionBar->raise();
    placeSettingStrip();
}

void DisplayMainWindow::showEvent(QShowEvent* event)
{
    MainWindowBase::showEvent(event);
    // This widget is covered by others and is never painted itself: it is the exposure that tells.
    if (windowHandle())
        windowHandle()->installEventFilter(this);
}

bool DisplayMainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Expose && watched == windowHandle()) {
        watched->removeEventFilter(this);
        // The window paints while it handles this; when control is back in the event loop the frame is there.
        QMetaObject::invokeMethod(this, &DisplayMainWindow::firstFramePainted, Qt::QueuedConnection);
    }
    return MainWindowBase::eventFilter(watched, event);
}

void DisplayMainWindow::timerEvent(QTimerEvent*)
{
    // A panel stands between them.
    if (m_panels->openPanel() || m_keypads->isOpen())
        return;
    hideBars();
}

void DisplayMainWindow::hideBars()
{
    m_hideTimer.stop();
    m_toolBar->hide();
    m_functionBar->hide();
}

void DisplayMainWindow::keyPressEvent(QKeyEvent* event)
{
    // What has the focus comes first: a help page closes, a drag is cancelled.
    FunctionController& controller = FunctionController::getInstance();
    if (event->key() == Qt::Key_Escape && controller.canGoBack())
        controller.functionTriggersGoBack();
    else
        MainWindowBase::keyPressEvent(event);
}

void DisplayMainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit quitRequested();
}
