#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

#include <memory>
#include <vector>

namespace Velmora::Sdi {

/// A catalogue: owns its standards, in catalogue order.
using VideoStandardList = std::vector<std::unique_ptr<const StandardFromPayloadIdentifier>>;

/// The field values that make one standard of a family.
struct VideoStandardFields {
    PayloadId::TransportFormat transport = PayloadId::TransportFormat::Progressive;
    PayloadId::PictureFormat picture = PayloadId::PictureFormat::Progressive;
    PayloadId::PictureRate rate = PayloadId::PictureRate::None;
    PayloadId::SampleStructure sampling = PayloadId::SampleStructure::YCbCr422;
    PayloadId::BitDepth depth = PayloadId::BitDepth::Bits10;
    PayloadId::AspectRatio aspect = PayloadId::AspectRatio::SixteenByNine;
    PayloadId::HorizontalPixelArraySize array = PayloadId::HorizontalPixelArraySize::Size1920;
    PayloadId::Colourimetry colourimetry = PayloadId::Colourimetry::Rec709;
    PayloadId::TransferCurve transfer = PayloadId::TransferCurve::SdrTv;
};

/// Turns field values into the payload identifiers of every link and appends the standard that they make: one
/// function per link family.
class VideoStandardCreator {
public:
    using Function = void (*)(VideoStandardList&, const VideoStandardFields&);

    static void addSd_270m(VideoStandardList& list, const VideoStandardFields& fields);
    static void add720_1g5(VideoStandardList& list, const VideoStandardFields& fields);
    static void add1080_1g5(VideoStandardList& list, const VideoStandardFields& fields);
    static void add720_3g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add1080_3g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add1080_Levelb3g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add1080_DualLink1g5(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_QuadLink1g5QuadrantMode(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_QuadLink3gQuadrantMode(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_QuadLinkLevelb3gQuadrantMode(VideoStandardList& list,
                                                     const VideoStandardFields& fields);
    static void add2160_DualLink_3g_LevelB(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_QuadLink3g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_QuadLinkLevelb3g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_6g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_DualLink6g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add2160_12g(VideoStandardList& list, const VideoStandardFields& fields);
    static void add4320_QuadLink12g_SingleOnly(VideoStandardList& list, const VideoStandardFields& fields);
};

} // namespace Velmora::Sdi
