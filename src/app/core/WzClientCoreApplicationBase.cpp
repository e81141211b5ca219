#include "app/core/WzClientCoreApplicationBase.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/ClientConstants.h"
#include "network/events/SequencePackagedLogPacket.h"

WzClientCoreApplicationBase::WzClientCoreApplicationBase(int& argc, char** argv,
                                                         WzClientNetworkManager::RawData rawData)
    : QCoreApplication(argc, argv)
    , m_programArgs(*this, true)
    , m_networkManager(nullptr, rawData)
    , m_datacoreManager(m_networkManager.getConnectionToServer(), m_distributor)
{
    m_distributor.registerPacketAcceptor(&m_logPacketHandler, SequencePackagedLogPacket::kClassName);
    logConnectionState();
}

WzClientCoreApplicationBase::~WzClientCoreApplicationBase()
{
    m_distributor.deregisterPacketAcceptor(&m_logPacketHandler);
}

void WzClientCoreApplicationBase::initialise()
{
    m_networkManager.configureConnectionToServer(
        ClientConstantsFactory::instance()->getDefaultWzServerAddress(), true);
}

void WzClientCoreApplicationBase::logConnectionState()
{
    const auto server = [this]() -> QString {
        return m_networkManager.getHostAddress().toString() + QLatin1Char(':')
            + QString::number(NetworkConnection::kServerTcpPort);
    };
    connect(&m_networkManager, &WzClientNetworkManager::connectedToServer, this,
            [server] { Velmora::log()->info("info: connected to {}", server()); });
    connect(&m_networkManager, &WzClientNetworkManager::connectionToServerLost, this,
            [server] { Velmora::log()->info("info: connection to {} lost", server()); });
    connect(&m_networkManager, &WzClientNetworkManager::reconnectAttemptFailed, this,
            [server] { Velmora::log()->info("info: no answer from {}, trying again", server()); });
}
