#pragma once

#include "commands/CommandExecutor.h"
#include "gui/shell/Favourites.h"
#include "gui/shell/ScreenCommands.h"

#include <QObject>
#include <QPointer>

class ConsoleLog;
class DatacoreGuiConnectionsManager;
class DisplayMainWindow;
class DriverCalibrationState;
class InstrumentClock;
class PowerOffDialog;
class ShellPanel;
class SupportedSubWindows;
class WzSubWindowManager;

/// Opens what the shell lays over the windows: menu, launcher, overview, dialogs. One is open at a time, and
/// each is made when it opens. What can be asked for by name stands in commands().
class ScreenPanels : public QObject {
    Q_OBJECT
public:
    /// How a favourite looks, and why it cannot be chosen now.
    struct Description {
        QString text;
        QString icon;
        QString whyNot;
    };

    ScreenPanels(DisplayMainWindow& window, DatacoreGuiConnectionsManager& connections,
                 SupportedSubWindows& catalogue);

    DisplayMainWindow& window() const { return m_window; }
    WzSubWindowManager& windows() const;
    SupportedSubWindows& catalogue() const { return m_catalogue; }
    const ScreenCommands& commands() const { return m_commands; }
    Favourites& favourites() { return m_favourites; }
    ConsoleLog& console() const { return *m_console; }
    DriverCalibrationState& driverCalibration() const { return *m_driverCalibration; }
    /// The identifiers of the commands in the section of the system.
    static QStringList systemCommands();
    /// Null when none is open.
    ShellPanel* openPanel() const;
    /// Shows what comes from the instrument and not from the user: when nothing is open any more. It may not
    /// be wanted then: @p make gives null.
    void showWhenFree(std::function<ShellPanel*()> make);

    Description describe(const Favourite& favourite) const;
    /// Carries out the command, unless it cannot be given now.
    void run(const QString& commandId);
    void run(const Favourite& favourite);

public slots:
    /// The main menu comes, or goes when it is what is open.
    void toggleMainMenu();
    void closePanel();
    void openLayouts();
    void openNetworkConnection();

signals:
    /// What the user asks for in the dialog of the connection.
    void connectRequested(QString address, bool autoConnect);
    void disconnectRequested();
    /// What is to be kept has to be kept now.
    void aboutToPowerOff();

private:
    void addScreenCommands();
    void addSystemCommands(DatacoreGuiConnectionsManager& connections);
    void addRemoteDialogs(DatacoreGuiConnectionsManager& connections);
    void addInstrumentDialogs(DatacoreGuiConnectionsManager& connections);
    PowerOffDialog* makePowerOffDialog();
    void show(ShellPanel* panel);
    void showWaiting();
    /// What has a number, under a name of its own in menu and favourites.
    void offer(const char* id, const QString& text, const char* icon, CommandExecutor::Command command);
    int layoutNamed(const QString& name) const;

    DisplayMainWindow& m_window;
    SupportedSubWindows& m_catalogue;
    ScreenCommands m_commands;
    Favourites m_favourites;
    InstrumentClock* const m_clock;
    ConsoleLog* const m_console;
    DriverCalibrationState* const m_driverCalibration;
    QPointer<ShellPanel> m_panel;
    std::vector<std::function<ShellPanel*()>> m_waiting;
    /// Makes the panel and connects it with its elements.
    std::function<ShellPanel*()> m_makeMainMenu;
};
