#pragma once

#include "network/NetworkConnection.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>

#include <chrono>

/// Owns the client's connection to the instrument: keeps the server address and the auto-connect setting, and
/// reconnects on a timer.
class WzClientNetworkManager : public QObject {
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds kRetryInterval{2000};

    /// A program that needs no raw data packets leaves the UDP port to the display client beside it.
    enum class RawData { Listen, DoNotListen };

    explicit WzClientNetworkManager(QObject* parent = nullptr, RawData rawData = RawData::Listen);
    ~WzClientNetworkManager() override;

    NetworkConnection& getConnectionToServer() { return m_connection; }
    QHostAddress getHostAddress() const { return m_hostAddress; }

    /// Sets the server and whether a lost connection is renewed. A new address drops the connection; the
    /// first attempt to reach it follows after kRetryInterval. The same address changes nothing about the
    /// connection.
    void configureConnectionToServer(const QHostAddress& address, bool autoConnect);
    bool connectToServer();
    /// Tries at once, and goes on trying when that fails. Nothing while connected.
    void connectNow();
    /// Drops the connection, and neither renews it nor tries on.
    void giveUp();

public slots:
    void onRetryTimerTimeout();
    void onNetworkConnectionDisconnectedFromHost();

signals:
    void connectedToServer();
    void connectionToServerLost();
    void reconnectAttemptFailed();
    void newHostAddressSet(const QString& address);
    void newAutoConnectStateSet(bool autoConnect);

private:
    bool m_autoConnect = false;
    QTimer m_retryTimer;
    QHostAddress m_hostAddress;
    NetworkConnection m_connection;
};
