#include "datacore/nodes/VideoStandard2110Items.h"

#include "types/ip/Supported2110VideoStandards.h"

using Velmora::IpTypes::Supported2110VideoStandards;
using Velmora::IpTypes::VideoStandard2110Params;

void VideoStandard2110Items::checkConsistency(const VideoStandard2110Params& params,
                                              std::list<DatacoreValidStatusMessage>& messages)
{
    if (!params.areConsistent())
        messages.emplace_back(DatacoreValidStatusMessage::VideoStandard2110ParamsInvalid);
}

void VideoStandard2110Items::checkSupport(const VideoStandard2110Params& params,
                                          std::list<DatacoreValidStatusMessage>& messages)
{
    if (!Supported2110VideoStandards::instance().contains(params))
        messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
}
