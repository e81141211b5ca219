#pragma once

#include "gui/shell/DisplayMainWindow.h"
#include "gui/shell/ScreenPanels.h"
#include "gui/style/WzPalette.h"

#include <QImage>
#include <QLatin1String>
#include <QString>

class WzDisplayClientApplication;
class WzSubwindowContent;
class WzSubWindow;

/// The display client of the test program, and a camera in front of it.
class Desk {
public:
    Desk();

    DisplayMainWindow& window() const { return *m_window; }
    ScreenPanels& panels() const { return m_window->panels(); }
    WzSubWindowManager& windows() const { return m_window->windows(); }

    /// The theme of what comes, and the folder that it goes to.
    void setTheme(WzPalette::Theme theme);

    /// An empty screen with nothing over it.
    void clear() const;
    /// Opens a window with that title alone, at the top left.
    WzSubWindow* open(const QString& title, const QSize& size) const;
    WzSubwindowContent& content() const;
    /// Four windows of the main instruments.
    void openMain() const;

    /// Writes an element of the instrument, and waits for its word.
    bool write(const QString& path, const QString& value) const;
    QString read(const QString& path) const;
    bool isConnected() const;
    /// Nothing is missing any more in any window.
    bool isLive() const;

    /// The screen with the menus that are open.
    QImage look() const;
    /// Saves what is to be seen, or the @p part of it.
    bool shoot(const QString& name, const QWidget* part = nullptr) const;
    /// Texts that do not fit where they stand.
    QStringList cutTexts() const;

private:
    WzDisplayClientApplication& m_application;
    DisplayMainWindow* m_window;
    QString m_theme;
};
