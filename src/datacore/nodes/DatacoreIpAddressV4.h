#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/IpAddressV4Value.h"

/// An IPv4 address; 0.0.0.0 is invalid.
class DatacoreIpAddressV4 : public DatacoreStructured<IpAddressV4Value> {
public:
    using DatacoreStructured::DatacoreStructured;
};
