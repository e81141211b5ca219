#pragma once

#include "network/RawDataPacket.h"

#include <QPointer>
#include <QVarLengthArray>

#include <map>
#include <memory>
#include <vector>

class NetworkConnection;
class RawDataPacketReceiverInterfaceBase;

/// Who receives which packets, and with that, what the server is asked to send: the first receiver of an
/// identifier makes the connection request it, the last one to leave makes it cancel.
///
/// Receivers are held by plain pointer; each deregisters before it is destroyed. One thread only.
class RawDataPacketRegistry {
public:
    using PacketIdentifier = RawDataPacket::PacketIdentifier;
    /// A copy; the usual few receivers fit without an allocation.
    using Receivers = QVarLengthArray<RawDataPacketReceiverInterfaceBase*, 8>;

    static RawDataPacketRegistry& getInstance();

    RawDataPacketRegistry(const RawDataPacketRegistry&) = delete;
    RawDataPacketRegistry& operator=(const RawDataPacketRegistry&) = delete;

    /// Registering one receiver twice holds it twice.
    void registerRawDataPacketReceiver(PacketIdentifier identifier,
                                       RawDataPacketReceiverInterfaceBase* receiver);
    /// Removes every entry of this receiver under this identifier. When no entry of the identifier remains,
    /// its packets are cancelled, also when there was none before.
    void deregisterRawDataPacketReceiver(PacketIdentifier identifier,
                                         RawDataPacketReceiverInterfaceBase* receiver);

    bool hasReceivers(PacketIdentifier identifier) const;
    /// The receivers of one identifier, the most recently registered first.
    Receivers getReceiversForPacketIdentifier(PacketIdentifier identifier) const;
    /// Each identifier that has a receiver, once, ascending.
    std::vector<PacketIdentifier> getAllRegisteredPacketIdentifiers() const;

    /// Hands the packet to the receivers of the identifier, in the order of
    /// getReceiversForPacketIdentifier(). A receiver may register and deregister any other meanwhile: one
    /// that has gone is not called any more, one that has come is called from the next packet on.
    void deliver(PacketIdentifier identifier, const std::shared_ptr<const RawDataPacket>& packet) const;

    /// The connection to request packets through; null to request nothing.
    void setNetworkConnection(NetworkConnection* connection);

private:
    RawDataPacketRegistry() = default;

    bool isRegistered(PacketIdentifier identifier, const RawDataPacketReceiverInterfaceBase* receiver) const;

    QPointer<NetworkConnection> m_connection;
    std::multimap<PacketIdentifier, RawDataPacketReceiverInterfaceBase*> m_receivers;
    unsigned m_departures = 0; ///< counts deregistrations, so that a delivery under way notices them
};
