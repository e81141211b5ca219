#pragma once

#include "commands/CommandExecutor.h"

#include <QObject>

class DisplayMainWindow;
class SupportedSubWindows;
class WzSubWindow;
class WzSubWindowManager;

/// What the numbered commands do on the screen: layouts, windows, colours, and what the front panel's buttons
/// do. Panels register their own (see ScreenPanels).
class ScreenActions : public QObject {
    Q_OBJECT
public:
    ScreenActions(DisplayMainWindow& window, SupportedSubWindows& catalogue);

private:
    using Command = CommandExecutor::Command;

    void addLayouts();
    void addLayoutList();
    void addWindows();
    void addKindsOfWindows(SupportedSubWindows& catalogue);
    void addColours();
    void addPanelButtons();
    void addKey(Command command, Qt::Key key);
    void addOnActive(Command command, void (*act)(DisplayMainWindow&, WzSubWindow&),
                     bool disableWhenLayoutLocked = false);
    void showLayout(int index);
    WzSubWindowManager& windows() const;
    WzSubWindow* activeWindow() const;
    /// Empty when the layouts are free.
    QString lockReason() const;
    QString fullReason() const;

    DisplayMainWindow& m_window;
    CommandExecutor& m_commands;
};
