#pragma once

#include "datacore/DatacoreValidStatusMessage.h"
#include "datacore/ItemCodec.h"

#include "types/ip/VideoStandard2110Params.h"

#include <list>

/// How the parameters of an ST 2110-20 video format stand in a node's items: width, height, sampling, depth,
/// range, colorimetry, interlaced, segmented, transfer curve, and the frame rate as numerator and
/// denominator. Codes stand by their names in SDP.
namespace VideoStandard2110Items {

template<typename Codec, typename Params>
void visit(Codec& codec, Params& params)
{
    using namespace Velmora::IpTypes;
    codec(params.width, params.height);
    codec.named(params.sampling, &convertSampleStructureToString, &convertStringToSampleStructure);
    codec.named(params.depth, &convertBitDepthToString, &convertStringToBitDepth);
    codec.named(params.range, &convertRangeToString, &convertStringToRange);
    codec.named(params.colorimetry, &convertColorimetryToString, &convertStringToColorimetry);
    codec(params.interlaced, params.segmented);
    codec.named(params.transfer, &convertTransferCurveToString, &convertStringToTransferCurve);
    codec(params.frameRate.numerator, params.frameRate.denominator);
}

/// Finds parameters that exclude each other.
void checkConsistency(const Velmora::IpTypes::VideoStandard2110Params& params,
                      std::list<DatacoreValidStatusMessage>& messages);
/// Finds formats that are not on offer.
void checkSupport(const Velmora::IpTypes::VideoStandard2110Params& params,
                  std::list<DatacoreValidStatusMessage>& messages);

} // namespace VideoStandard2110Items
