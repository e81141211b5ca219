#include "server/core/HostAddressNode.h"

#include "datacore/nodes/IpAddressV4Value.h"

namespace Velmora::Server {

namespace {

constexpr quint32 kFirstMulticast = 0xE0000000; // 224.0.0.0
constexpr quint32 kFirstReserved = 0xF0000000; // 240.0.0.0, and broadcasts at the end

} // namespace

void HostAddressNode::regenerateInvalidationStatusMessages(
    std::list<DatacoreValidStatusMessage>& messages) const
{
    if (getDataList().size() > 1) {
        messages.emplace_back(DatacoreValidStatusMessage::TooManyItems);
        return;
    }
    if (getData().isEmpty())
        return;
    const auto value = IpAddressV4Value::fromText(getData());
    if (!value)
        messages.emplace_back(DatacoreValidStatusMessage::NotDesiredType);
    else if (value->address >= kFirstReserved)
        messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    else if (value->address >= kFirstMulticast)
        messages.emplace_back(DatacoreValidStatusMessage::IpAddressMulticast);
    else
        value->check(messages);
}

} // namespace Velmora::Server
