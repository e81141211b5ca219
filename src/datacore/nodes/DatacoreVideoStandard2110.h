#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/VideoStandard2110Items.h"

/// An ST 2110-20 video format, chosen from those on offer.
struct VideoStandard2110Value {
    static constexpr QLatin1String kNodeClass{"DatacoreVideoStandard2110", 25};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotVideoStandard2110;

    Velmora::IpTypes::VideoStandard2110Params standard;

    bool operator==(const VideoStandard2110Value&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        VideoStandard2110Items::visit(codec, self.standard);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        VideoStandard2110Items::checkSupport(standard, messages);
    }
};

/// The node that holds such a value.
class DatacoreVideoStandard2110 : public DatacoreStructured<VideoStandard2110Value> {
public:
    using DatacoreStructured::DatacoreStructured;
};
