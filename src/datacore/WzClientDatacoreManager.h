#pragma once

#include "datacore/ClientDatacoreMonitor.h"
#include "datacore/ClientDatacorePopulator.h"
#include "datacore/ClientDatacoreRegistry.h"

#include "network/SerialisableDataPacketAcceptorInterface.h"

#include <QObject>

struct RadixTreeNode;

/// Owns the mirror of the server's trees and builds it when the server sends their shape.
class WzClientDatacoreManager : public QObject, public SerialisableDataPacketAcceptorInterface {
    Q_OBJECT
public:
    WzClientDatacoreManager(NetworkConnection& connection, SerialisableDataPacketDistributor& distributor,
                            QObject* parent = nullptr);
    ~WzClientDatacoreManager() override;

    bool canAcceptPacket(const QString& className) const override;
    /// Makes the nodes of the trees in the packet, unless there are some already.
    void acceptPacket(const SerialisableDataPacket& packet) override;

    ClientDatacoreRegistry& getClientDatacoreRegistry() { return m_registry; }
    const ClientDatacorePopulator& populator() const { return m_populator; }
    const ClientDatacoreMonitor& monitor() const { return m_monitor; }
    /// The paths of the node and of all below it, each before those below it.
    QStringList generateDatacorePathsFromRadixTreeNode(const RadixTreeNode& node) const;

private:
    SerialisableDataPacketDistributor& m_distributor;
    ClientDatacoreRegistry m_registry;
    ClientDatacorePopulator m_populator;
    ClientDatacoreMonitor m_monitor;
};
