#include "gui/shell/ScreenPanels.h"

#include "gui/framework/ApplicationState.h"
#include "gui/framework/SupportedSubWindows.h"
#include "gui/framework/WzMdiArea.h"
#include "gui/framework/WzSubWindowManager.h"
#include "gui/shell/AboutDialog.h"
#include "gui/shell/AboutDialogConnectionBuilder.h"
#include "gui/shell/ConnectedPanel.h"
#include "gui/shell/ConsoleDialog.h"
#include "gui/shell/ConsoleLog.h"
#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/DriverCalibrationConnectionBuilder.h"
#include "gui/shell/DriverCalibrationDialog.h"
#include "gui/shell/DriverCalibrationState.h"
#include "gui/shell/HealthDialog.h"
#include "gui/shell/HealthDialogConnectionBuilder.h"
#include "gui/shell/HelpDialog.h"
#include "gui/shell/InstrumentClock.h"
#include "gui/shell/LauncherConnectionBuilder.h"
#include "gui/shell/LauncherPage.h"
#include "gui/shell/LayoutsPanel.h"
#include "gui/shell/MainMenu.h"
#include "gui/shell/NetworkConnectionDialog.h"
#include "gui/shell/PowerOffDialog.h"
#include "gui/shell/PowerOffDialogConnectionBuilder.h"
#include "gui/shell/PresetImportPanel.h"
#include "gui/shell/PresetsPanel.h"
#include "gui/shell/SystemModeSwitchDialog.h"
#include "gui/shell/SystemModeSwitchDialogConnectionBuilder.h"
#include "gui/shell/TimeDateDialog.h"
#include "gui/shell/TimeDateDialogConnectionBuilder.h"
#include "gui/shell/ToolBar.h"
#include "gui/shell/UndoStep.h"
#include "gui/shell/VelmoraMenuConnectionBuilder.h"
#include "gui/style/WzCustomStyle.h"

#include "datacore/DatacoreGuiConnectionsManager.h"

#include <QApplication>

namespace {

QString onOff(bool on)
{
    return on ? ScreenPanels::tr("On") : ScreenPanels::tr("Off");
}

} // namespace

ScreenPanels::ScreenPanels(DisplayMainWindow& window, DatacoreGuiConnectionsManager& connections,
                           SupportedSubWindows& catalogue)
    : QObject(&window)
    , m_window(window)
    , m_catalogue(catalogue)
    , m_presets(new PresetRequests(window.connectionStatus(), this))
    , m_clock(new InstrumentClock(this))
    , m_console(new ConsoleLog(this))
    , m_driverCalibration(new DriverCalibrationState(this))
{
    const auto* const launcherBuilder = connections.add<LauncherConnectionBuilder>();
    m_makeMainMenu = connectedPanel<MainMenu>(
        connections.add<VelmoraMenuConnectionBuilder>(),
        [this, launcherBuilder] {
            auto* const menu = new MainMenu(*this);
            connectNowAndAgain(launcherBuilder, &menu->launcher(),
                               &LauncherConnectionBuilder::connectLauncherToDatacores);
            return menu;
        },
        &VelmoraMenuConnectionBuilder::connectVelmoraMenuToDatacores);
    addScreenCommands();
    addPresetCommands();
    addSystemCommands(connections);
}

WzSubWindowManager& ScreenPanels::windows() const
{
    return m_window.windows();
}

// --- Panels

ShellPanel* ScreenPanels::openPanel() const
{
    // One that was closed lives until the event loop is back.
    return m_panel && m_panel->isVisible() ? m_panel.data() : nullptr;
}

void ScreenPanels::show(ShellPanel* panel)
{
    closePanel();
    m_panel = panel;
    // Later, since the panel is no panel any more while it says so, but m_panel still names it.
    connect(m_panel, &QObject::destroyed, this, &ScreenPanels::showWaiting, Qt::QueuedConnection);
    m_panel->open();
    m_window.showBars();
}

void ScreenPanels::showWhenFree(std::function<ShellPanel*()> make)
{
    m_waiting.push_back(std::move(make));
    showWaiting();
}

void ScreenPanels::showWaiting()
{
    while (!openPanel() && !m_waiting.empty()) {
        const auto make = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        if (ShellPanel* const panel = make())
            show(panel);
    }
}

void ScreenPanels::closePanel()
{
    // A menu of a window would have the keys for itself.
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    if (ShellPanel* const panel = openPanel())
        panel->close();
}

void ScreenPanels::toggleMainMenu()
{
    if (qobject_cast<MainMenu*>(openPanel()))
        closePanel();
    else
        show(m_makeMainMenu());
}

void ScreenPanels::openLayouts()
{
    show(new LayoutsPanel(*this));
}

void ScreenPanels::openPresets()
{
    show(new PresetsPanel(*this));
}

void ScreenPanels::openPresetImport()
{
    show(new PresetImportPanel(*this));
}

void ScreenPanels::savePreset()
{
    auto* const panel = new PresetsPanel(*this);
    show(panel);
    panel->askForName();
}

void ScreenPanels::openNetworkConnection()
{
    auto* const dialog = new NetworkConnectionDialog(m_window, m_window.connectionStatus());
    connect(dialog, &NetworkConnectionDialog::connectRequested, this, &ScreenPanels::connectRequested);
    connect(dialog, &NetworkConnectionDialog::disconnectRequested, this, &ScreenPanels::disconnectRequested);
    show(dialog);
}

// --- Commands

QStringList ScreenPanels::systemCommands()
{
    return {QStringLiteral("networkConnection"), QStringLiteral("health"),
            QStringLiteral("timeDate"),          QStringLiteral("systemMode"),
            QStringLiteral("driverCalibration"), QStringLiteral("console"),
            QStringLiteral("lightTheme"),        QStringLiteral("colourBlindPalette"),
            QStringLiteral("keepBars"),          QStringLiteral("screenshot"),
            QStringLiteral("powerOff"),          QStringLiteral("quit")};
}

void ScreenPanels::offer(const char* id, const QString& text, const char* icon,
                         CommandExecutor::Command command)
{
    CommandExecutor& executor = m_window.commands();
    m_commands.add({QString::fromLatin1(id), text, QString::fromLatin1(icon),
                    [&executor, command] { executor.execute(command); },
                    [&executor, command] { return executor.whyNot(command); }});
}

void ScreenPanels::addScreenCommands()
{
    using Command = CommandExecutor::Command;
    ApplicationState& state = m_window.applicationState();
    CommandExecutor& executor = m_window.commands();
    executor.setAction(Command::ToggleMainMenu, [this] { toggleMainMenu(); });
    executor.setAction(Command::ClosePanel, [this] { closePanel(); });
    executor.setAction(Command::OpenLayouts, [this] { openLayouts(); });
    executor.setAction(Command::OpenHelp, [this] { show(new HelpDialog(m_window)); });
    offer("layouts", tr("Overview"), "layouts", Command::OpenLayouts);
    offer("newLayout", tr("New layout"), "add", Command::NewLayout);
    m_commands.add({QStringLiteral("lockLayouts"),
                    tr("Lock layouts"),
                    QStringLiteral("lock"),
                    [&state, &executor] {
                        executor.execute(state.isLayoutLocked() ? Command::UnlockLayouts
                                                                : Command::LockLayouts);
                    },
                    {},
                    [&state] { return onOff(state.isLayoutLocked()); }});
    offer("closeWindows", tr("Close all windows"), "close", Command::AskBeforeClosingWindows);
    m_commands.add({QStringLiteral("screenshot"), tr("Screenshot"), QStringLiteral("screenshot"),
                    // Of what was there before the menu, which goes first.
                    [&executor] {
                        QMetaObject::invokeMethod(
                            &executor, [&executor] { executor.execute(Command::TakeScreenshot); },
                            Qt::QueuedConnection);
                    }});
    offer("help", tr("Help"), "help", Command::OpenHelp);
    offer("quit", tr("Quit"), "close", Command::Quit);
}

void ScreenPanels::addPresetCommands()
{
    using Command = CommandExecutor::Command;
    UndoStep& undo = m_window.undoStep();
    CommandExecutor& executor = m_window.commands();
    const auto whyNoUndo = [&undo] { return undo.isPossible() ? QString() : tr("Nothing to undo"); };
    executor.setAction(Command::OpenPresets, [this] { openPresets(); });
    executor.setAction(
        Command::SavePreset, [this] { m_presets->overwrite(m_presets->current()); },
        [this] { return m_presets->current().isEmpty() ? tr("No preset was loaded") : m_presets->whyNot(); });
    executor.setAction(
        Command::UndoPreset, [&undo] { undo.undo(); }, whyNoUndo);
    addNumberedPresets(executor);
    offer("presets", tr("All presets"), "preset", Command::OpenPresets);
    m_commands.add({QStringLiteral("savePreset"), tr("Save preset"), QStringLiteral("save"),
                    [this] { savePreset(); }, [this] { return m_presets->whyNot(); }});
    m_commands.add(
        {QStringLiteral("undo"), tr("Undo"), QStringLiteral("back"), [&undo] { undo.undo(); }, whyNoUndo});
    connect(m_presets, &PresetRequests::ended, this, &ScreenPanels::tellOfPreset);
}

void ScreenPanels::addNumberedPresets(CommandExecutor& executor)
{
    using Command = CommandExecutor::Command;
    const int count = static_cast<int>(Command::LoadPreset10) - static_cast<int>(Command::LoadPreset1) + 1;
    for (int i = 0; i < count; ++i) {
        executor.setAction(
            static_cast<Command>(static_cast<int>(Command::LoadPreset1) + i),
            [this, i] { m_presets->load(m_presets->names().value(i)); },
            [this, i] {
                const bool isThere = i < m_presets->names().size();
                const QString why = m_presets->whyNot();
                return isThere || !why.isEmpty() ? why : tr("There is no preset %1").arg(i + 1);
            });
    }
}

/// The panel says it itself. A screen that was loaded speaks for itself, too.
void ScreenPanels::tellOfPreset(PresetRequests::Kind kind, bool succeeded)
{
    const bool isLoaded = kind == PresetRequests::Kind::Load && succeeded;
    if (!isLoaded && !qobject_cast<PresetsPanel*>(openPanel()))
        m_window.showNotice(succeeded ? QStringLiteral("preset") : QStringLiteral("status-warning"),
                            m_presets->text(), {});
}

void ScreenPanels::addSystemCommands(DatacoreGuiConnectionsManager& connections)
{
    using Command = CommandExecutor::Command;
    WzCustomStyle& style = m_window.wzStyle();
    CommandExecutor& executor = m_window.commands();
    executor.setAction(Command::OpenNetworkConnection, [this] { openNetworkConnection(); });
    offer("networkConnection", tr("Network connection"), "network", Command::OpenNetworkConnection);
    const auto isLight = [&style] { return style.theme() == WzPalette::Theme::Light; };
    m_commands.add({QStringLiteral("lightTheme"),
                    tr("Light theme"),
                    QStringLiteral("picture"),
                    [&executor, isLight] {
                        executor.execute(isLight() ? Command::UseDarkTheme : Command::UseLightTheme);
                    },
                    {},
                    [isLight] { return onOff(isLight()); }});
    m_commands.add({QStringLiteral("colourBlindPalette"),
                    tr("Colour-blind"),
                    QStringLiteral("eye"),
                    [&executor] { executor.execute(Command::ToggleColourBlindPalette); },
                    {},
                    [&style] { return onOff(style.isColourBlind()); }});
    ToolBar& toolBar = m_window.toolBar();
    m_commands.add({QStringLiteral("keepBars"),
                    tr("Keep bars shown"),
                    QStringLiteral("pin"),
                    [&toolBar] { toolBar.setKept(!toolBar.isKept()); },
                    {},
                    [&toolBar] { return onOff(toolBar.isKept()); }});
    addInstrumentDialogs(connections);
    addRemoteDialogs(connections);
}

/// What they do is done elsewhere: they show it, and ask for it.
void ScreenPanels::addRemoteDialogs(DatacoreGuiConnectionsManager& connections)
{
    using Command = CommandExecutor::Command;
    connectNowAndAgain(connections.add<DriverCalibrationConnectionBuilder>(), m_driverCalibration,
                       &DriverCalibrationConnectionBuilder::connectDriverCalibrationToDatacores);
    m_window.commands().setAction(Command::OpenDriverCalibration, [this] {
        show(new DriverCalibrationDialog(m_window, *m_driverCalibration));
    });
    m_window.commands().setAction(Command::OpenConsole,
                                  [this] { show(new ConsoleDialog(m_window, *m_console)); });
    offer("driverCalibration", tr("Driver calibration"), "generator", Command::OpenDriverCalibration);
    offer("console", tr("Console"), "rename", Command::OpenConsole);
}

void ScreenPanels::addInstrumentDialogs(DatacoreGuiConnectionsManager& connections)
{
    using Command = CommandExecutor::Command;
    const auto add = [this](const char* id, const QString& text, const char* icon, Command command,
                            auto make) {
        m_window.commands().setAction(command, [this, make] { show(make()); });
        offer(id, text, icon, command);
    };
    add("health", tr("Health"), "alarm", Command::OpenHealth,
        connectedPanel<HealthDialog>(
            connections.add<HealthDialogConnectionBuilder>(), [this] { return new HealthDialog(m_window); },
            &HealthDialogConnectionBuilder::connectHealthDialogToDatacores));
    const auto* const timeBuilder = connections.add<TimeDateDialogConnectionBuilder>();
    connectNowAndAgain(timeBuilder, m_clock,
                       &TimeDateDialogConnectionBuilder::connectInstrumentClockToDatacores);
    connect(timeBuilder, &DatacoreConnectionBuilderBase::connectionToDatacoresLost, m_clock,
            &InstrumentClock::reset);
    add("timeDate", tr("Time and date"), "timing", Command::OpenTimeDate,
        connectedPanel<TimeDateDialog>(
            timeBuilder, [this] { return new TimeDateDialog(m_window, *m_clock); },
            &TimeDateDialogConnectionBuilder::connectTimeDateDialogToDatacores));
    add("systemMode", tr("System mode"), "settings", Command::OpenSystemMode,
        connectedPanel<SystemModeSwitchDialog>(
            connections.add<SystemModeSwitchDialogConnectionBuilder>(),
            [this] { return new SystemModeSwitchDialog(m_window); },
            &SystemModeSwitchDialogConnectionBuilder::connectSystemModeSwitchDialogToDatacores));
    add("about", tr("About"), "status-information", Command::OpenAbout,
        connectedPanel<AboutDialog>(
            connections.add<AboutDialogConnectionBuilder>(), [this] { return new AboutDialog(m_window); },
            &AboutDialogConnectionBuilder::connectAboutDialogToDatacores));
    add("powerOff", tr("Power off"), "status-warning", Command::OpenPowerOff,
        connectedPanel<PowerOffDialog>(
            connections.add<PowerOffDialogConnectionBuilder>(), [this] { return makePowerOffDialog(); },
            &PowerOffDialogConnectionBuilder::connectPowerOffDialogToDatacores));
}

PowerOffDialog* ScreenPanels::makePowerOffDialog()
{
    auto* const dialog = new PowerOffDialog(m_window);
    connect(dialog, &PowerOffDialog::aboutToPowerOff, this, [this] {
        emit aboutToPowerOff();
        m_window.area().prepareForPowerOff();
        m_window.showNotice(QStringLiteral("status-warning"), tr("The instrument goes off"), {});
    });
    return dialog;
}

void ScreenPanels::run(const QString& commandId)
{
    const ScreenCommand* const command = m_commands.find(commandId);
    if (command && command->canRun())
        command->run();
    else if (command)
        m_window.showNotice(QStringLiteral("status-warning"), command->whyNot(), {});
}

// --- Favourites

int ScreenPanels::layoutNamed(const QString& name) const
{
    const auto overview = windows().getLayoutOverview();
    for (std::size_t i = 0; i < overview.size(); ++i) {
        if (overview[i].name == name)
            return static_cast<int>(i);
    }
    return -1;
}

ScreenPanels::Description ScreenPanels::describe(const Favourite& favourite) const
{
    switch (favourite.kind) {
    case Favourite::Kind::Window:
        if (const auto* const kind =
                m_catalogue.find(favourite.name, favourite.contentClassName, favourite.role))
            return {kind->windowTitle, kind->icon, {}};
        return {favourite.name, QStringLiteral("launcher"), tr("Not on this instrument")};
    case Favourite::Kind::Layout:
        return {favourite.name, QStringLiteral("layouts"),
                layoutNamed(favourite.name) < 0 ? tr("There is no such layout") : QString()};
    case Favourite::Kind::Preset:
        return {favourite.name, QStringLiteral("preset"),
                !m_presets->isConnected()                 ? tr("Not connected")
                    : m_presets->contains(favourite.name) ? QString()
                                                          : tr("There is no such preset")};
    case Favourite::Kind::Command:
        break;
    }
    const ScreenCommand* const command = m_commands.find(favourite.name);
    if (!command)
        return {favourite.name, QStringLiteral("settings"), tr("Not on this instrument")};
    return {command->text, command->icon, command->whyNot ? command->whyNot() : QString()};
}

void ScreenPanels::run(const Favourite& favourite)
{
    if (favourite.kind == Favourite::Kind::Command) {
        run(favourite.name);
    } else if (favourite.kind == Favourite::Kind::Preset) {
        m_presets->load(favourite.name);
    } else if (favourite.kind == Favourite::Kind::Layout) {
        const int index = layoutNamed(favourite.name);
        if (index >= 0 && index != windows().getCurrentWindowLayout())
            windows().setCurrentWindowLayout(index);
    } else if (const auto* const kind =
                   m_catalogue.find(favourite.name, favourite.contentClassName, favourite.role)) {
        if (windows().getInstancesOfWindowCurrentlyOpen(*kind) > 0)
            windows().restoreExistingSubWindows(*kind);
        else
            m_catalogue.request(*kind);
    }
}
