#pragma once

#include <QWidget>

class ApplicationState;
class ConnectionStatus;
class Setting;
class WzCustomStyle;

/// Base of a client's main window, as far as the windows in it need to know.
class MainWindowBase : public QWidget {
    Q_OBJECT
public:
    MainWindowBase(ApplicationState& state, const ConnectionStatus& connection, WzCustomStyle& style);

    ApplicationState& applicationState() const { return m_state; }
    const ConnectionStatus& connectionStatus() const { return m_connection; }
    WzCustomStyle& wzStyle() const { return m_style; }

    /// A short message over the windows, which goes by itself.
    virtual void showNotice(const QString& icon, const QString& text, const QString& detail) = 0;
    /// Lets the user change a number by knob, keys or finger.
    virtual void editSetting(Setting& setting) = 0;

private:
    ApplicationState& m_state;
    const ConnectionStatus& m_connection;
    WzCustomStyle& m_style;
};
