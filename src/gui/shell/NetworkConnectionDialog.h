#pragma once

#include "gui/shell/ShellPanel.h"

#include <QBasicTimer>

class ConnectionStatus;
class EntryLine;
class ToggleSwitch;

/// Where the instrument is, whether the connection is kept up, and how it stands.
class NetworkConnectionDialog : public ShellPanel {
    Q_OBJECT
public:
    NetworkConnectionDialog(MainWindowBase& window, const ConnectionStatus& connection);

    /// Four numbers of a single host; what the protocol can name.
    static bool isAddress(const QString& text);

    EntryLine& address() const { return *m_address; }

signals:
    /// The instrument at that address is wanted now, and again after a loss if @p autoConnect.
    void connectRequested(QString address, bool autoConnect);
    void disconnectRequested();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void setupEntry(QVBoxLayout& column);
    void setupState(QVBoxLayout& column);
    void requestConnection();
    QString stateInWords() const;
    void showState();
    void checkAddress();

    const ConnectionStatus& m_connection;
    EntryLine* m_address;
    ToggleSwitch* m_autoConnect;
    QLabel* m_problem = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_lastSuccess = nullptr;
    QLabel* m_retries = nullptr;
    QPushButton* m_connect = nullptr;
    QPushButton* m_disconnect = nullptr;
    QBasicTimer m_tick; ///< while it counts the seconds without a connection
};
