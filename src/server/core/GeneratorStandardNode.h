#pragma once

#include "datacore/nodes/DatacoreVideoStandard.h"
#include "server/sources/VideoFrame.h"

namespace Velmora::Server {

/// A video standard that pictures can be generated for.
class GeneratorStandardNode : public DatacoreVideoStandard {
public:
    using DatacoreVideoStandard::DatacoreVideoStandard;

    /// Also reports that the value is not supported where its identifiers make no whole and valid standard,
    /// or one whose pictures are not made here.
    void regenerateInvalidationStatusMessages(Messages& messages) const override;

    /// Of a standard that can be generated, otherwise nothing.
    static std::optional<VideoFormat> formatOf(const VideoStandardValue& value);
};

} // namespace Velmora::Server
