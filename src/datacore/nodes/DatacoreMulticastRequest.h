#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/IpAddressV4Value.h"

/// A wish to receive what is sent to a multicast address.
struct MulticastRequestValue {
    static constexpr QLatin1String kNodeClass{"DatacoreMulticastRequest", 24};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDesiredType;

    IpAddressV4Value group;
    IpAddressV4Value source; ///< the only sender wanted; 0.0.0.0 for any
    quint16 port = 0;
    bool isWanted = false; ///< false leaves the group

    bool operator==(const MulticastRequestValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        IpAddressV4Value::visit(codec, self.group);
        IpAddressV4Value::visit(codec, self.source);
        codec(self.port, self.isWanted);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        if (isWanted)
            group.checkMulticast(messages);
    }
};

/// The node that holds such a value.
class DatacoreMulticastRequest : public DatacoreStructured<MulticastRequestValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
