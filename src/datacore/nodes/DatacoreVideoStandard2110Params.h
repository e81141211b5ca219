#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/VideoStandard2110Items.h"

/// An ST 2110-20 video format put together parameter by parameter, be it on offer or not.
struct VideoStandard2110ParamsValue {
    static constexpr QLatin1String kNodeClass{"DatacoreVideoStandard2110Params", 31};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotVideoStandard2110;

    Velmora::IpTypes::VideoStandard2110Params params;

    bool operator==(const VideoStandard2110ParamsValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        VideoStandard2110Items::visit(codec, self.params);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        VideoStandard2110Items::checkConsistency(params, messages);
    }
};

/// The node that holds such a value.
class DatacoreVideoStandard2110Params : public DatacoreStructured<VideoStandard2110ParamsValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
