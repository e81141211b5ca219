#include "datacore/ClientDatacoreMonitor.h"

#include "datacore/ClientDatacore.h"
#include "datacore/DatacorePacket.h"

#include "network/NetworkConnection.h"

#include <memory>

ClientDatacoreMonitor::ClientDatacoreMonitor(NetworkConnection& connection, QObject* parent)
    : QObject(parent)
    , m_connection(connection)
{
}

void ClientDatacoreMonitor::onClientDatacoreUpdated(int packetId, ClientDatacore* datacore)
{
    if (datacore->getChangedStatus() != DatacoreBase::ChangedDirectly)
        return;
    if (!m_measured)
        measureEcho(*datacore);
    m_connection.acceptPacket(
        DatacorePacket::fromNode(*datacore, datacore->getDatacorePathOnServer(), true,
                                 DatacorePacket::Writer{m_connection.getLocalId(), packetId}));
}

void ClientDatacoreMonitor::measureEcho(ClientDatacore& datacore)
{
    m_measured = &datacore;
    m_sinceWrite.start();
    const auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = connect(&datacore, &ClientDatacore::datacoreInSyncWithServer, this, [this, connection] {
        disconnect(*connection);
        m_measured.clear();
        m_lastEchoTime = std::chrono::nanoseconds(m_sinceWrite.nsecsElapsed());
    });
}
