#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QString>

/// How the connection to the instrument stands, for all that show it.
class ConnectionStatus : public QObject {
    Q_OBJECT
public:
    enum class State {
        NotConnected,
        Connecting, ///< the nodes' values are coming in
        Connected,
    };

    using QObject::QObject;

    State state() const { return m_state; }
    QString address() const { return m_address; }
    int nodesReceived() const { return m_nodesReceived; }
    int nodesAnnounced() const { return m_nodesAnnounced; }
    /// Attempts since the connection was lost, or since the start.
    int retries() const { return m_retries; }
    /// Whether a lost connection is renewed.
    bool isAutoConnect() const { return m_autoConnect; }
    /// Whether there will be another attempt while there is no connection.
    bool isRetrying() const { return m_retrying; }
    /// Invalid before the first success.
    QDateTime lastSuccess() const { return m_lastSuccess; }
    /// How long there has been no connection, in whole seconds.
    int secondsWithoutConnection() const;
    /// One line for the tool bar: "Not connected to 127.0.0.1, retrying (12 s)".
    QString text() const;

public slots:
    void setAddress(const QString& address);
    void setAutoConnect(bool autoConnect);
    void noteConnected();
    void noteLost();
    void noteFailedAttempt();
    /// The user wants no connection.
    void noteGivenUp();
    /// The count of announced nodes that have a value. When all have, the connection stands.
    void setProgress(int nodesReceived, int nodesAnnounced);

signals:
    void changed();

private:
    State m_state = State::NotConnected;
    QString m_address;
    int m_nodesReceived = 0;
    int m_nodesAnnounced = 0;
    int m_retries = 0;
    bool m_autoConnect = true;
    bool m_retrying = true;
    QDateTime m_lastSuccess;
    QElapsedTimer m_sinceLost;
};
