#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/IpAddressV4Value.h"

/// What an Ethernet port is set to. Gateway and name servers that are 0.0.0.0 stand for none.
struct EthernetAddressValue {
    static constexpr QLatin1String kNodeClass{"DatacoreEthernetAddress", 23};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotDesiredType;

    IpAddressV4Value address;
    unsigned maskLength = 0; ///< bits of the network
    IpAddressV4Value gateway;
    IpAddressV4Value nameServer0;
    IpAddressV4Value nameServer1;

    bool operator==(const EthernetAddressValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        IpAddressV4Value::visit(codec, self.address);
        codec(self.maskLength);
        for (auto* const each : {&self.gateway, &self.nameServer0, &self.nameServer1})
            IpAddressV4Value::visit(codec, *each);
    }

    /// The port has to be one host of a network, and its gateway another one of the same.
    void check(std::list<DatacoreValidStatusMessage>& messages) const;
};

/// The node that holds such a value.
class DatacoreEthernetAddress : public DatacoreStructured<EthernetAddressValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
