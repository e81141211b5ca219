#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/IpAddressV4Value.h"

/// Whether what is sent to a multicast address is received.
struct MulticastStatusValue {
    static constexpr QLatin1String kNodeClass{"DatacoreMulticastStatus", 23};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDesiredType;

    IpAddressV4Value group;
    bool isJoined = false;
    quint64 packetCount = 0; ///< packets received since the group was joined

    bool operator==(const MulticastStatusValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        IpAddressV4Value::visit(codec, self.group);
        codec(self.isJoined, self.packetCount);
    }
};

/// The node that holds such a value.
class DatacoreMulticastStatus : public DatacoreStructured<MulticastStatusValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
