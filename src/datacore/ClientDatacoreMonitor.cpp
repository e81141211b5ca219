#include "datacore/ClientDatacoreMonitor.h"

#include "datacore/ClientDatacore.h"
#include "datacore/DatacorePacket.h"

#include "network/NetworkConnection.h"

ClientDatacoreMonitor::ClientDatacoreMonitor(NetworkConnection& connection, QObject* parent)
    : QObject(parent)
    , m_connection(connection)
{
}

void ClientDatacoreMonitor::onClientDatacoreUpdated(int packetId, ClientDatacore* datacore)
{
    if (datacore->getChangedStatus() != DatacoreBase::ChangedDirectly)
        return;
    m_connection.acceptPacket(
        DatacorePacket::fromNode(*datacore, datacore->getDatacorePathOnServer(), true,
                                 DatacorePacket::Writer{m_connection.getLocalId(), packetId}));
}
