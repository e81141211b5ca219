#pragma once

#include "datacore/DatacoreBase.h"

namespace Velmora::Server {

/// The path of a file, or nothing. Whether the file will do is found out by whoever opens it.
class FilePathNode : public DatacoreBase {
public:
    using DatacoreBase::DatacoreBase;

    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override
    {
        messages.clear();
        if (getDataList().size() > 1)
            messages.emplace_back(DatacoreValidStatusMessage::TooManyItems);
    }
};

} // namespace Velmora::Server
