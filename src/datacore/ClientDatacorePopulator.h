#pragma once

#include "datacore/DatacorePacket.h"

#include "network/SerialisableDataPacketAcceptorInterface.h"

#include <QtGlobal>

class ClientDatacoreRegistry;
class NetworkConnection;
class SerialisableDataPacketDistributor;

/// Applies the values that the server sends to the mirrored nodes.
class ClientDatacorePopulator : public SerialisableDataPacketAcceptorInterface {
public:
    ClientDatacorePopulator(const NetworkConnection& connection, const ClientDatacoreRegistry& registry,
                            SerialisableDataPacketDistributor& distributor);
    ~ClientDatacorePopulator() override;
    Q_DISABLE_COPY_MOVE(ClientDatacorePopulator)

    bool canAcceptPacket(const QString& className) const override;
    void acceptPacket(const SerialisableDataPacket& packet) override;
    void populateClientDatacoreFromJson(DatacorePacket packet);

    /// How many values have reached a node.
    quint64 appliedCount() const { return m_appliedCount; }

private:
    const NetworkConnection& m_connection;
    const ClientDatacoreRegistry& m_registry;
    SerialisableDataPacketDistributor& m_distributor;
    quint64 m_appliedCount = 0;
};
