#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/MacAddressValue.h"

/// A hardware address.
class DatacoreMacAddress : public DatacoreStructured<MacAddressValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
