#include "app/core/WzClientCoreApplicationBase.h"

#include "app/core/ConnectionLog.h"
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
    ConnectionLog::follow(m_networkManager);
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
