#pragma once

#include "datacore/DatacoreBase.h"

namespace Velmora::Server {

/// The IPv4 address that one host has, in dotted form; empty for none.
class HostAddressNode : public DatacoreBase {
public:
    using DatacoreBase::DatacoreBase;

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override;
};

} // namespace Velmora::Server
