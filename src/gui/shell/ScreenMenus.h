#pragma once

#include <QIcon>
#include <QObject>

class DisplayMainWindow;
class SupportedSubWindows;
class WzMenu;
class WzSubWindowManager;

/// The menus of the screen: instruments by group, layouts, and the system. Each is made when it opens and
/// deletes itself when it closes.
class ScreenMenus : public QObject {
    Q_OBJECT
public:
    ScreenMenus(DisplayMainWindow& window, SupportedSubWindows& catalogue);

    /// With its upper left corner at that place on the screen.
    void openMainMenu(const QPoint& globalPosition);
    void openLayoutsMenu(const QPoint& globalPosition);
    void openMainMenuAboveFunctionBar();

private:
    WzMenu* makeMenu();
    WzMenu* makeMainMenu();
    void addInstruments(WzMenu& menu);
    void addLayouts(WzMenu& menu);
    void addChangesOfLayouts(WzMenu& menu);
    void addSystem(WzMenu& menu);
    void askForLayoutName();
    QIcon icon(const QString& name) const;
    WzSubWindowManager& windows() const;

    DisplayMainWindow& m_window;
    SupportedSubWindows& m_catalogue;
};
