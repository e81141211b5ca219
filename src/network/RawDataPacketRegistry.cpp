#include "network/RawDataPacketRegistry.h"

#include "network/NetworkConnection.h"
#include "network/RawDataPacketReceiverInterface.h"

#include <algorithm>

RawDataPacketRegistry& RawDataPacketRegistry::getInstance()
{
    static RawDataPacketRegistry instance;
    return instance;
}

void RawDataPacketRegistry::registerRawDataPacketReceiver(PacketIdentifier identifier,
                                                          RawDataPacketReceiverInterfaceBase* receiver)
{
    if (m_connection && !hasReceivers(identifier))
        m_connection->requestRawDataPacketFromServer(identifier);
    m_receivers.insert(m_receivers.lower_bound(identifier), {identifier, receiver});
}

void RawDataPacketRegistry::deregisterRawDataPacketReceiver(PacketIdentifier identifier,
                                                            RawDataPacketReceiverInterfaceBase* receiver)
{
    ++m_departures;
    std::erase_if(m_receivers,
                  [&](const auto& entry) { return entry.first == identifier && entry.second == receiver; });
    if (m_connection && !hasReceivers(identifier))
        m_connection->cancelRawDataPacketFromServer(identifier);
}

bool RawDataPacketRegistry::hasReceivers(PacketIdentifier identifier) const
{
    return m_receivers.contains(identifier);
}

RawDataPacketRegistry::Receivers
RawDataPacketRegistry::getReceiversForPacketIdentifier(PacketIdentifier identifier) const
{
    Receivers receivers;
    const auto [begin, end] = m_receivers.equal_range(identifier);
    for (auto entry = begin; entry != end; ++entry)
        receivers.append(entry->second);
    return receivers;
}

std::vector<RawDataPacketRegistry::PacketIdentifier>
RawDataPacketRegistry::getAllRegisteredPacketIdentifiers() const
{
    std::vector<PacketIdentifier> identifiers;
    for (const auto& [identifier, receiver] : m_receivers) {
        if (identifiers.empty() || identifiers.back() != identifier)
            identifiers.push_back(identifier);
    }
    return identifiers;
}

void RawDataPacketRegistry::deliver(PacketIdentifier identifier,
                                    const std::shared_ptr<const RawDataPacket>& packet) const
{
    const Receivers receivers = getReceiversForPacketIdentifier(identifier);
    const unsigned before = m_departures;
    for (RawDataPacketReceiverInterfaceBase* receiver : receivers) {
        if (m_departures == before || isRegistered(identifier, receiver))
            receiver->receiveRawDataPacket(packet);
    }
}

void RawDataPacketRegistry::setNetworkConnection(NetworkConnection* connection)
{
    m_connection = connection;
}

bool RawDataPacketRegistry::isRegistered(PacketIdentifier identifier,
                                         const RawDataPacketReceiverInterfaceBase* receiver) const
{
    const auto [begin, end] = m_receivers.equal_range(identifier);
    return std::any_of(begin, end, [&](const auto& entry) { return entry.second == receiver; });
}
