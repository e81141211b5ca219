#include "network/WzClientNetworkManager.h"

#include "network/ClientConstants.h"
#include "network/RawDataPacketRegistry.h"

#include <QPointer>

WzClientNetworkManager::WzClientNetworkManager(QObject* parent, RawData rawData)
    : QObject(parent)
    , m_connection(this, false)
{
    connect(&m_retryTimer, &QTimer::timeout, this, &WzClientNetworkManager::onRetryTimerTimeout);
    connect(&m_connection, &NetworkConnection::disconnectedFromHost, this,
            &WzClientNetworkManager::onNetworkConnectionDisconnectedFromHost);
    if (rawData == RawData::Listen) {
        m_connection.listenForRawDataPackets(ClientConstantsFactory::instance()->getDefaultWzClientAddress(),
                                             NetworkConnection::kClientUdpPort);
    }
    RawDataPacketRegistry::getInstance().setNetworkConnection(&m_connection);
}

WzClientNetworkManager::~WzClientNetworkManager()
{
    // Nobody is told of a loss any more: the listeners of this object may be gone already.
    disconnect(&m_connection, nullptr, this, nullptr);
}

void WzClientNetworkManager::configureConnectionToServer(const QHostAddress& address, bool autoConnect)
{
    if (autoConnect != m_autoConnect) {
        m_autoConnect = autoConnect;
        emit newAutoConnectStateSet(autoConnect);
    }
    if (address == m_hostAddress)
        return;
    m_hostAddress = address;
    emit newHostAddressSet(address.toString());
    m_connection.disconnectFromHost();
    m_retryTimer.start(kRetryInterval);
}

bool WzClientNetworkManager::connectToServer()
{
    return m_connection.connectToHost(m_hostAddress, NetworkConnection::kServerTcpPort);
}

void WzClientNetworkManager::connectNow()
{
    if (m_connection.isConnectedToHost())
        return;
    m_retryTimer.start(kRetryInterval);
    onRetryTimerTimeout();
}

void WzClientNetworkManager::giveUp()
{
    configureConnectionToServer(m_hostAddress, false);
    m_retryTimer.stop();
    m_connection.disconnectFromHost();
}

void WzClientNetworkManager::onRetryTimerTimeout()
{
    if (!connectToServer()) {
        emit reconnectAttemptFailed();
        return;
    }
    m_retryTimer.stop();
    emit connectedToServer();
}

void WzClientNetworkManager::onNetworkConnectionDisconnectedFromHost()
{
    const QPointer<WzClientNetworkManager> alive(this);
    emit connectionToServerLost();
    // Whoever heard of it may have connected again: the timer would take that connection for a lost one.
    if (alive && m_autoConnect && !m_connection.isConnectedToHost())
        m_retryTimer.start(kRetryInterval);
}
