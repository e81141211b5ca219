#include "datacore/ClientDatacorePopulator.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"

using Velmora::LogThrottle;

ClientDatacorePopulator::ClientDatacorePopulator(const NetworkConnection& connection,
                                                 const ClientDatacoreRegistry& registry,
                                                 SerialisableDataPacketDistributor& distributor)
    : m_connection(connection)
    , m_registry(registry)
    , m_distributor(distributor)
{
    m_distributor.registerPacketAcceptor(this, DatacorePacket::kClassName);
}

ClientDatacorePopulator::~ClientDatacorePopulator()
{
    m_distributor.deregisterPacketAcceptor(this);
}

bool ClientDatacorePopulator::canAcceptPacket(const QString& className) const
{
    return className == DatacorePacket::kClassName;
}

void ClientDatacorePopulator::acceptPacket(const SerialisableDataPacket& packet)
{
    if (auto datacorePacket = DatacorePacket::fromPacket(packet)) {
        populateClientDatacoreFromJson(std::move(*datacorePacket));
        return;
    }
    static LogThrottle throttle;
    throttle.log(spdlog::level::err,
                 "ClientDatacorePopulator::acceptPacket: Couldn't create a DatacorePacket from {}",
                 QString::fromUtf8(packet.serialise()));
}

void ClientDatacorePopulator::populateClientDatacoreFromJson(DatacorePacket packet)
{
    const QString path = packet.getDatacorePath();
    ClientDatacore* const datacore = m_registry.lookupDatacoreFromPath(path);
    if (datacore) {
        ++m_appliedCount;
        // The server's own announcements name no client, and another client's change names that one.
        const QString clientId = packet.getClientID();
        const bool track = !clientId.isEmpty() && clientId == m_connection.getLocalId();
        datacore->populateDataFromDatacorePacket(packet, track);
    } else if (m_registry.isEmpty()) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn,
                     "Client datacore populator: Registry is empty, no way to populate: {}", path);
    } else {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn,
                     "Client datacore populator: Registry does not contain datacore with path: {}", path);
    }
}
