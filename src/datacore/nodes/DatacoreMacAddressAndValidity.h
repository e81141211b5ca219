#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/MacAddressValue.h"

/// A hardware address and whether it is known.
struct MacAddressAndValidityValue {
    static constexpr QLatin1String kNodeClass{"DatacoreMacAddressAndValidity", 29};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::InvalidMacAddress;

    MacAddressValue address;
    bool isKnown = false; ///< otherwise the address means nothing

    bool operator==(const MacAddressAndValidityValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        MacAddressValue::visit(codec, self.address);
        codec(self.isKnown);
    }
};

/// The node that holds such a value.
class DatacoreMacAddressAndValidity : public DatacoreStructured<MacAddressAndValidityValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
