#include "types/ip/Supported2110VideoStandards.h"

#include <algorithm>
#include <array>

namespace Velmora::IpTypes {

namespace {

using Rates = Supported2110VideoStandards::FrameRates;

Rates lowRates()
{
    return {{24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}};
}

Rates interlacedRates()
{
    return {{25, 1}, {30000, 1001}, {30, 1}};
}

Rates progressiveRates()
{
    return {{24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}, {50, 1}, {60000, 1001}, {60, 1}};
}

/// 2048-, 4096- and 8192-wide pictures are cinema formats and have 47.95 and 48 as well.
Rates cinemaRates()
{
    return {{24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1},
            {48000, 1001}, {48, 1}, {50, 1}, {60000, 1001}, {60, 1}};
}

struct Content {
    SampleStructure2110 sampling;
    BitDepth2110 depth;
    Range2110 range;
};

constexpr std::array kContents{
    Content{SampleStructure2110::YCbCr422, BitDepth2110::Bits10, Range2110::Narrow},
    Content{SampleStructure2110::YCbCr422, BitDepth2110::Bits12, Range2110::Narrow},
    Content{SampleStructure2110::YCbCr444, BitDepth2110::Bits10, Range2110::Narrow},
    Content{SampleStructure2110::YCbCr444, BitDepth2110::Bits12, Range2110::Narrow},
    Content{SampleStructure2110::Rgb, BitDepth2110::Bits10, Range2110::Narrow},
    Content{SampleStructure2110::Rgb, BitDepth2110::Bits12, Range2110::Narrow},
    Content{SampleStructure2110::Rgb, BitDepth2110::Bits10, Range2110::Full},
    Content{SampleStructure2110::Rgb, BitDepth2110::Bits12, Range2110::Full},
};

struct Colour {
    Colorimetry2110 colorimetry;
    TransferCurve2110 transfer;
};

/// The colour pairs of the SDI catalogue; ST 2110-20 calls PQ and HLG pictures BT2100.
constexpr std::array kColours{
    Colour{Colorimetry2110::Bt709, TransferCurve2110::Sdr},
    Colour{Colorimetry2110::Bt2020, TransferCurve2110::Sdr},
    Colour{Colorimetry2110::Bt2100, TransferCurve2110::Pq},
    Colour{Colorimetry2110::Bt2100, TransferCurve2110::Hlg},
    Colour{Colorimetry2110::Bt2020, TransferCurve2110::St2115LogS3},
};

} // namespace

Supported2110VideoStandards::Supported2110VideoStandards()
{
    populate2110Standards(m_standards);
    populate2110EUhdStandards(m_standards);
}

const Supported2110VideoStandards& Supported2110VideoStandards::instance()
{
    static const Supported2110VideoStandards standards;
    return standards;
}

bool Supported2110VideoStandards::contains(const VideoStandard2110Params& standard) const
{
    return std::find(m_standards.begin(), m_standards.end(), standard) != m_standards.end();
}

void Supported2110VideoStandards::populate2110Standards(StandardList& list)
{
    addRaster(1280, 720, false, false, progressiveRates(), list);
    addRaster(1920, 1080, false, false, progressiveRates(), list);
    addRaster(1920, 1080, true, false, interlacedRates(), list);
    addRaster(1920, 1080, true, true, lowRates(), list);
    addRaster(2048, 1080, false, false, cinemaRates(), list);
    addRaster(2048, 1080, true, false, interlacedRates(), list);
    addRaster(2048, 1080, true, true, lowRates(), list);
    addRaster(3840, 2160, false, false, progressiveRates(), list);
    addRaster(4096, 2160, false, false, cinemaRates(), list);
}

void Supported2110VideoStandards::populate2110EUhdStandards(StandardList& list)
{
    addRaster(7680, 4320, false, false, progressiveRates(), list);
    addRaster(8192, 4320, false, false, cinemaRates(), list);
}

void Supported2110VideoStandards::addRaster(unsigned width, unsigned height, bool interlaced, bool segmented,
                                            const FrameRates& frameRates, StandardList& list)
{
    for (const Colour& colour : kColours) {
        for (const Content& content : kContents)
            addStandardsFramerateSweep(width, height, content.sampling, content.depth, content.range,
                                       colour.colorimetry, interlaced, segmented, colour.transfer, frameRates,
                                       list);
    }
}

void Supported2110VideoStandards::addStandardsFramerateSweep(unsigned width, unsigned height,
                                                             SampleStructure2110 sampling, BitDepth2110 depth,
                                                             Range2110 range, Colorimetry2110 colorimetry,
                                                             bool interlaced, bool segmented,
                                                             TransferCurve2110 transfer,
                                                             const FrameRates& frameRates, StandardList& list)
{
    for (const Sdi::FrameRate& frameRate : frameRates)
        list.push_back({.width = width,
                        .height = height,
                        .sampling = sampling,
                        .depth = depth,
                        .range = range,
                        .colorimetry = colorimetry,
                        .interlaced = interlaced,
                        .segmented = segmented,
                        .transfer = transfer,
                        .frameRate = frameRate});
}

} // namespace Velmora::IpTypes
