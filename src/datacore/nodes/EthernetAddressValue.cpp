#include "datacore/nodes/EthernetAddressValue.h"

namespace {

constexpr unsigned kShortestMask = 1;
/// With 31 bits there are two hosts and nothing else (RFC 3021).
constexpr unsigned kLongestMask = 31;
constexpr quint32 kFirstMulticast = 0xE0000000; // 224.0.0.0; reserved addresses follow it
constexpr quint32 kLoopback = 127;

} // namespace

void EthernetAddressValue::check(std::list<DatacoreValidStatusMessage>& messages) const
{
    using Message = DatacoreValidStatusMessage;
    for (const IpAddressV4Value& each : {address, gateway, nameServer0, nameServer1}) {
        if (each.address >= kFirstMulticast)
            messages.emplace_back(Message::IpAddressMulticast);
    }
    if (address.address == 0)
        messages.emplace_back(Message::IpAddressZero);
    if (maskLength < kShortestMask)
        messages.emplace_back(Message::IntegerUndersized);
    else if (maskLength > kLongestMask)
        messages.emplace_back(Message::IntegerOversized);
    if (!messages.empty())
        return;
    const quint32 hosts = 0xFFFFFFFFU >> maskLength;
    const quint32 host = address.address & hosts;
    const bool namesNoHost = maskLength < kLongestMask && (host == 0 || host == hosts);
    const bool isBeyond = gateway.address != 0 && (gateway.address & ~hosts) != (address.address & ~hosts);
    if (namesNoHost || isBeyond || gateway == address || address.address >> 24 == kLoopback)
        messages.emplace_back(Message::ConfigurationInvalid);
}
