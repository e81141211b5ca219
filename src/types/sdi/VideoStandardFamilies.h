#pragma once

#include "types/sdi/VideoStandardCreator.h"

namespace Velmora::Sdi {

/// Colour primaries and transfer curve that go together.
struct ColourPair {
    PayloadId::Colourimetry colourimetry = PayloadId::Colourimetry::Rec709;
    PayloadId::TransferCurve transfer = PayloadId::TransferCurve::SdrTv;
};

/// The field sets of each link family: every combination of raster, rate, sampling and depth that its
/// interface standard carries and the family's check lets pass. Where a family has two functions, the plain
/// one adds 4:2:2 with 10 bits and the extended one the other sampling structures and depths.
namespace VideoStandardFamilies {

void add4320_QuadLink12g_standards(VideoStandardList& list, const ColourPair& colour);
void add4320_QuadLink12g_extended_standards(VideoStandardList& list, const ColourPair& colour);

void add2160_12g_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_12g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_DualLink6g_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_DualLink6g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_6g_standards(VideoStandardList& list, const ColourPair& colour);
/// 4:2:0 only: ST 2081-10 mode 1 has no room for more.
void add2160_6g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLinkLevelb3g_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLinkLevelb3g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLink3g_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLink3g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLinkLevelb3gQuadrantMode_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLinkLevelb3gQuadrantMode_extended_standards(VideoStandardList& list,
                                                             const ColourPair& colour);
void add2160_QuadLink3gQuadrantMode_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLink3gQuadrantMode_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_DualLink_3g_LevelB_standards(VideoStandardList& list, const ColourPair& colour);
void add2160_QuadLink1g5QuadrantMode_standards(VideoStandardList& list, const ColourPair& colour);

void add1080_Levelb3g_422_10_standards(VideoStandardList& list, const ColourPair& colour);
void add1080_Levelb3g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add1080_DualLink1g5_422_10_standards(VideoStandardList& list, const ColourPair& colour);
void add1080_DualLink1g5_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add1080_3g_422_10_standards(VideoStandardList& list, const ColourPair& colour);
void add1080_3g_extended_standards(VideoStandardList& list, const ColourPair& colour);
void add720_3g_444_standards(VideoStandardList& list, const ColourPair& colour);
void add1080_1g5_standards(VideoStandardList& list, const ColourPair& colour);
void add720_1g5_standards(VideoStandardList& list, const ColourPair& colour);

void addSd_270m_standards(VideoStandardList& list);

} // namespace VideoStandardFamilies
} // namespace Velmora::Sdi
