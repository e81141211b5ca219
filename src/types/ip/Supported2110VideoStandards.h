#pragma once

#include "types/ip/VideoStandard2110Params.h"

#include <vector>

namespace Velmora::IpTypes {

/// The ST 2110-20 video formats on offer. ST 2110-20 itself limits no raster and no rate: the list mirrors
/// the formats of SDI, with 8192 x 4320 beside them. Built once, immutable.
class Supported2110VideoStandards {
public:
    using StandardList = std::vector<VideoStandard2110Params>;
    using FrameRates = std::vector<Sdi::FrameRate>;

    Supported2110VideoStandards();

    /// The one list that everybody shares, built when it is first asked for.
    static const Supported2110VideoStandards& instance();

    bool contains(const VideoStandard2110Params& standard) const;
    /// In menu order.
    const StandardList& getSupportedStandards() const { return m_standards; }

private:
    static void populate2110Standards(StandardList& list);
    static void populate2110EUhdStandards(StandardList& list);
    static void addStandardsFramerateSweep(unsigned width, unsigned height, SampleStructure2110 sampling,
                                           BitDepth2110 depth, Range2110 range, Colorimetry2110 colorimetry,
                                           bool interlaced, bool segmented, TransferCurve2110 transfer,
                                           const FrameRates& frameRates, StandardList& list);
    static void addRaster(unsigned width, unsigned height, bool interlaced, bool segmented,
                          const FrameRates& frameRates, StandardList& list);

    StandardList m_standards;
};

} // namespace Velmora::IpTypes
