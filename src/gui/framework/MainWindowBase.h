#pragma once

#include <QWidget>

#include <functional>

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
    /// Lets the user enter a line of text. @p accepted is called with it unless the user thinks better of it,
    /// and not when @p context has gone by then.
    virtual void askForText(const QString& title, const QString& text, QObject* context,
                            std::function<void(const QString&)> accepted) = 0;
    /// Lets the user change a number by knob, keys or finger.
    virtual void editSetting(Setting& setting) = 0;

private:
    ApplicationState& m_state;
    const ConnectionStatus& m_connection;
    WzCustomStyle& m_style;
};
