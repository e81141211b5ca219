#pragma once

#include "datacore/nodes/DatacoreStructured.h"
#include "datacore/nodes/VideoStandard2110Items.h"

/// The ST 2110-20 video format of a flow, and how the flow arrives.
struct VideoStandard2110AndStatusValue {
    static constexpr QLatin1String kNodeClass{"DatacoreVideoStandard2110AndStatus", 34};
    static constexpr int kFaultContent = DatacoreValidStatusMessage::NotVideoStandard2110;

    Velmora::IpTypes::VideoStandard2110Params standard;
    bool isReceived = false; ///< otherwise the rest is what was received last
    bool hasStablePacketCount = false; ///< as many packets from marker bit to marker bit each time

    bool operator==(const VideoStandard2110AndStatusValue&) const = default;

    template<typename Codec, typename Self>
    static void visit(Codec& codec, Self& self)
    {
        VideoStandard2110Items::visit(codec, self.standard);
        codec(self.isReceived, self.hasStablePacketCount);
    }

    void check(std::list<DatacoreValidStatusMessage>& messages) const
    {
        if (!isReceived)
            return;
        VideoStandard2110Items::checkConsistency(standard, messages);
        if (!hasStablePacketCount)
            messages.emplace_back(DatacoreValidStatusMessage::PacketsPerMarkerUnstable);
    }
};

/// The node that holds such a value.
class DatacoreVideoStandard2110AndStatus : public DatacoreStructured<VideoStandard2110AndStatusValue> {
public:
    using DatacoreStructured::DatacoreStructured;
};
