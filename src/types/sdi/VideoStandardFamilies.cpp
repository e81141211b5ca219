#include "types/sdi/VideoStandardFamilies.h"

#include "types/sdi/PayloadFamily.h"

#include <array>
#include <span>

namespace Velmora::Sdi::VideoStandardFamilies {

using namespace PayloadId;
using Creator = VideoStandardCreator;

namespace {

struct Content {
    SampleStructure sampling;
    BitDepth depth;
};

struct Raster {
    HorizontalPixelArraySize array;
    TransportFormat transport;
    PictureFormat picture;
    CodeSet rates; ///< by ST 352 rate code
};

// Contents. Which depth goes with which sampling: ST 425-1 and ST 425-5, structures 1 to 4.

constexpr std::array kPlain{
    Content{SampleStructure::YCbCr422, BitDepth::Bits10},
    Content{SampleStructure::YCbCr422, BitDepth::Bits10FullRange},
};

constexpr std::array k420{
    Content{SampleStructure::YCbCr420, BitDepth::Bits10},
    Content{SampleStructure::YCbCr420, BitDepth::Bits10FullRange},
};

constexpr std::array kEightBit{Content{SampleStructure::YCbCr422, BitDepth::Bits8}};

constexpr std::array kStandardDefinition{
    Content{SampleStructure::YCbCr422, BitDepth::Bits10},
    Content{SampleStructure::YCbCr422, BitDepth::Bits8},
};

/// Structure 2.
constexpr std::array k444Samplings{
    SampleStructure::YCbCr444, SampleStructure::Rgb444,     SampleStructure::YCbCrA4444,
    SampleStructure::RgbA4444, SampleStructure::YCbCrD4444, SampleStructure::RgbD4444,
};
/// Structures 3 and 4.
constexpr std::array k12BitSamplings{
    SampleStructure::YCbCr444, SampleStructure::Rgb444,     SampleStructure::Xyz444,
    SampleStructure::YCbCr422, SampleStructure::YCbCrA4224, SampleStructure::YCbCrD4224,
};
/// As above without X'Y'Z', which the check of 89h refuses.
constexpr std::array k12BitSamplingsWithoutXyz{
    SampleStructure::YCbCr444,   SampleStructure::Rgb444,     SampleStructure::YCbCr422,
    SampleStructure::YCbCrA4224, SampleStructure::YCbCrD4224,
};
/// What both ST 372 and the check of 87h allow with 12 bits.
constexpr std::array k12BitSamplingsDualLink{
    SampleStructure::YCbCr444,
    SampleStructure::Rgb444,
    SampleStructure::YCbCrA4224,
    SampleStructure::YCbCrD4224,
};

template<std::size_t N, std::size_t M>
constexpr auto contents(const std::array<SampleStructure, N>& samplings,
                        const std::array<BitDepth, M>& depths)
{
    std::array<Content, N * M> result{};
    std::size_t i = 0;
    for (const BitDepth depth : depths) {
        for (const SampleStructure sampling : samplings)
            result[i++] = {sampling, depth};
    }
    return result;
}

constexpr std::array kBoth10{BitDepth::Bits10, BitDepth::Bits10FullRange};
constexpr std::array kBoth12{BitDepth::Bits12, BitDepth::Bits12FullRange};
constexpr std::array kNarrow10{BitDepth::Bits10};
constexpr std::array kNarrow12{BitDepth::Bits12};

template<std::size_t N, std::size_t M>
constexpr auto joined(const std::array<Content, N>& a, const std::array<Content, M>& b)
{
    std::array<Content, N + M> result{};
    for (std::size_t i = 0; i < N + M; ++i)
        result[i] = i < N ? a[i] : b[i - N];
    return result;
}

constexpr auto k444 = contents(k444Samplings, kBoth10);
constexpr auto kExtended = joined(k444, contents(k12BitSamplings, kBoth12));
constexpr auto kExtendedLevelA1080 = joined(k444, contents(k12BitSamplingsWithoutXyz, kBoth12));
constexpr auto kExtendedDualLink =
    joined(contents(k444Samplings, kNarrow10), contents(k12BitSamplingsDualLink, kNarrow12));

// Rasters. The array code stands for 1920 or 2048 samples of a sub-image.

constexpr auto k1920 = HorizontalPixelArraySize::Size1920;
constexpr auto k2048 = HorizontalPixelArraySize::Size2048;

constexpr Raster progressive(HorizontalPixelArraySize array, CodeSet rates)
{
    return {array, TransportFormat::Progressive, PictureFormat::Progressive, rates};
}
/// Segmented at rates up to 30, line-interleaved above.
constexpr Raster onInterlacedTransport(HorizontalPixelArraySize array, CodeSet rates)
{
    return {array, TransportFormat::Interlaced, PictureFormat::Progressive, rates};
}
constexpr Raster interlaced(HorizontalPixelArraySize array, CodeSet rates)
{
    return {array, TransportFormat::Interlaced, PictureFormat::Interlaced, rates};
}

constexpr CodeSet kHighAndCinema = RateSets::kHigh | RateSets::kCinemaHigh;

/// ST 2036-1 and ST 274 know no 47.95 and 48: these are for the 2048- and 4096-wide pictures of ST 2048.
constexpr std::array kHighProgressive{progressive(k1920, RateSets::kHigh),
                                      progressive(k2048, kHighAndCinema)};
constexpr std::array kHighLineInterleaved{
    onInterlacedTransport(k1920, RateSets::kHigh),
    onInterlacedTransport(k2048, kHighAndCinema),
};
/// ST 372 allows 47.95 and up at 2048 samples, the check of 87h up to 47.95.
constexpr std::array kHighDualLink{
    onInterlacedTransport(k1920, RateSets::kHigh),
    onInterlacedTransport(k2048, codeSet(PictureRate::Rate47_95)),
};
constexpr std::array kLowProgressive{progressive(k1920, RateSets::kLow), progressive(k2048, RateSets::kLow)};
constexpr std::array kLowQuadrants{
    onInterlacedTransport(k1920, RateSets::kLow),
    progressive(k1920, RateSets::kLow),
    onInterlacedTransport(k2048, RateSets::kLow),
    progressive(k2048, RateSets::kLow),
};
constexpr std::array kLow1080{
    interlaced(k1920, RateSets::kInterlaced), onInterlacedTransport(k1920, RateSets::kLow),
    progressive(k1920, RateSets::kLow),       onInterlacedTransport(k2048, RateSets::kLow),
    progressive(k2048, RateSets::kLow),
};
constexpr std::array k720{progressive(k1920, RateSets::kLow | RateSets::kHigh)};
constexpr std::array k4320High{progressive(k1920, RateSets::kHigh)};
constexpr std::array k4320Low{progressive(k1920, RateSets::kLow)};

/// Adds one standard for each rate.
using RateSweep = void (*)(VideoStandardList&, VideoStandardFields, CodeSet);

template<Creator::Function create>
void addRateSweep(VideoStandardList& list, VideoStandardFields fields, CodeSet rates)
{
    for (unsigned code = 0; code < 16; ++code) {
        if (!contains(rates, code))
            continue;
        fields.rate = static_cast<PictureRate>(code);
        create(list, fields);
    }
}

constexpr RateSweep add4320_QuadLink12g_RateSweep = addRateSweep<Creator::add4320_QuadLink12g_SingleOnly>;
constexpr RateSweep add2160_12g_RateSweep = addRateSweep<Creator::add2160_12g>;
constexpr RateSweep add2160_DualLink6g_RateSweep = addRateSweep<Creator::add2160_DualLink6g>;
constexpr RateSweep add2160_6g_RateSweep = addRateSweep<Creator::add2160_6g>;
constexpr RateSweep add2160_QuadLinkLevelb3g_RateSweep = addRateSweep<Creator::add2160_QuadLinkLevelb3g>;
constexpr RateSweep add2160_QuadLink3g_RateSweep = addRateSweep<Creator::add2160_QuadLink3g>;
constexpr RateSweep add2160_QuadLinkLevelb3gQuadrantMode_RateSweep =
    addRateSweep<Creator::add2160_QuadLinkLevelb3gQuadrantMode>;
constexpr RateSweep add2160_QuadLink3gQuadrantMode_RateSweep =
    addRateSweep<Creator::add2160_QuadLink3gQuadrantMode>;
constexpr RateSweep add2160_DualLink_3g_LevelB_RateSweep = addRateSweep<Creator::add2160_DualLink_3g_LevelB>;
constexpr RateSweep add2160_QuadLink1g5QuadrantMode_RateSweep =
    addRateSweep<Creator::add2160_QuadLink1g5QuadrantMode>;
constexpr RateSweep add1080_Levelb3g_RateSweep = addRateSweep<Creator::add1080_Levelb3g>;
constexpr RateSweep add1080_DualLink1g5_RateSweep = addRateSweep<Creator::add1080_DualLink1g5>;
constexpr RateSweep add1080_3g_RateSweep = addRateSweep<Creator::add1080_3g>;
constexpr RateSweep add720_3g_RateSweep = addRateSweep<Creator::add720_3g>;
constexpr RateSweep add1080_1g5_RateSweep = addRateSweep<Creator::add1080_1g5>;
constexpr RateSweep add720_1g5_RateSweep = addRateSweep<Creator::add720_1g5>;

void addFieldSets(VideoStandardList& list, RateSweep sweep, std::span<const Raster> rasters,
                  std::span<const Content> contents, const ColourPair& colour)
{
    for (const Raster& raster : rasters) {
        for (const Content& content : contents) {
            // X'Y'Z' belongs to cinema formats, none of which is interlaced.
            if (content.sampling == SampleStructure::Xyz444 && raster.picture == PictureFormat::Interlaced)
                continue;
            // 2048 x 1080 and 4096 x 2160 are wider than 16:9.
            const AspectRatio aspect =
                raster.array == k2048 ? AspectRatio::FourByThreeOrUnknown : AspectRatio::SixteenByNine;
            sweep(list,
                  {.transport = raster.transport,
                   .picture = raster.picture,
                   .sampling = content.sampling,
                   .depth = content.depth,
                   .aspect = aspect,
                   .array = raster.array,
                   .colourimetry = colour.colourimetry,
                   .transfer = colour.transfer},
                  raster.rates);
        }
    }
}

/// BT.2020 and BT.2100 begin at 10 bits.
void addEightBitFieldSets(VideoStandardList& list, RateSweep sweep, std::span<const Raster> rasters,
                          const ColourPair& colour)
{
    if (colour.colourimetry == Colourimetry::Rec709)
        addFieldSets(list, sweep, rasters, kEightBit, colour);
}

} // namespace

// 4:2:0 takes the room of 4:2:2 and so has its rates, although it belongs to the extended sets.

void add4320_QuadLink12g_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add4320_QuadLink12g_RateSweep, k4320High, kPlain, colour);
}
void add4320_QuadLink12g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add4320_QuadLink12g_RateSweep, k4320High, k420, colour);
    addFieldSets(list, add4320_QuadLink12g_RateSweep, k4320Low, kExtended, colour);
}

void add2160_12g_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_12g_RateSweep, kHighProgressive, kPlain, colour);
}
void add2160_12g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_12g_RateSweep, kHighProgressive, k420, colour);
    addFieldSets(list, add2160_12g_RateSweep, kLowProgressive, kExtended, colour);
}
void add2160_DualLink6g_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_DualLink6g_RateSweep, kHighProgressive, kPlain, colour);
}
void add2160_DualLink6g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_DualLink6g_RateSweep, kHighProgressive, k420, colour);
    addFieldSets(list, add2160_DualLink6g_RateSweep, kLowProgressive, kExtended, colour);
}
void add2160_6g_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_6g_RateSweep, kLowProgressive, kPlain, colour);
}
void add2160_6g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_6g_RateSweep, kLowProgressive, k420, colour);
}
void add2160_QuadLinkLevelb3g_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLinkLevelb3g_RateSweep, kHighLineInterleaved, kPlain, colour);
}
void add2160_QuadLinkLevelb3g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLinkLevelb3g_RateSweep, kHighLineInterleaved, k420, colour);
    addFieldSets(list, add2160_QuadLinkLevelb3g_RateSweep, kLowProgressive, kExtended, colour);
}
void add2160_QuadLink3g_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLink3g_RateSweep, kHighProgressive, kPlain, colour);
}
void add2160_QuadLink3g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLink3g_RateSweep, kHighProgressive, k420, colour);
    addFieldSets(list, add2160_QuadLink3g_RateSweep, kLowProgressive, kExtended, colour);
}

// Quadrants are whole 1080-line signals, so that they carry what a single link of their kind carries,
// interlaced pictures left out (ST 425-5 annex B).

void add2160_QuadLinkLevelb3gQuadrantMode_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLinkLevelb3gQuadrantMode_RateSweep, kHighLineInterleaved, kPlain, colour);
}
void add2160_QuadLinkLevelb3gQuadrantMode_extended_standards(VideoStandardList& list,
                                                             const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLinkLevelb3gQuadrantMode_RateSweep, kLowQuadrants, kExtended, colour);
}
void add2160_QuadLink3gQuadrantMode_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLink3gQuadrantMode_RateSweep, kHighProgressive, kPlain, colour);
}
void add2160_QuadLink3gQuadrantMode_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLink3gQuadrantMode_RateSweep, kLowQuadrants, kExtendedLevelA1080, colour);
}
void add2160_DualLink_3g_LevelB_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_DualLink_3g_LevelB_RateSweep, kLowProgressive, kPlain, colour);
    addFieldSets(list, add2160_DualLink_3g_LevelB_RateSweep, kLowProgressive, k420, colour);
}
void add2160_QuadLink1g5QuadrantMode_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add2160_QuadLink1g5QuadrantMode_RateSweep, kLowQuadrants, kPlain, colour);
}

void add1080_Levelb3g_422_10_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add1080_Levelb3g_RateSweep, kHighLineInterleaved, kPlain, colour);
}
void add1080_Levelb3g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add1080_Levelb3g_RateSweep, kLow1080, kExtended, colour);
}
void add1080_DualLink1g5_422_10_standards(VideoStandardList& list, const ColourPair& colour)
{
    // The check of 87h refuses full range, which is the second content of the plain set.
    addFieldSets(list, add1080_DualLink1g5_RateSweep, kHighDualLink, std::span(kPlain).first(1), colour);
}
void add1080_DualLink1g5_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add1080_DualLink1g5_RateSweep, kLow1080, kExtendedDualLink, colour);
}
void add1080_3g_422_10_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add1080_3g_RateSweep, kHighProgressive, kPlain, colour);
}
void add1080_3g_extended_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add1080_3g_RateSweep, kLow1080, kExtendedLevelA1080, colour);
}
void add720_3g_444_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add720_3g_RateSweep, k720, k444, colour);
}
void add1080_1g5_standards(VideoStandardList& list, const ColourPair& colour)
{
    addFieldSets(list, add1080_1g5_RateSweep, kLow1080, kPlain, colour);
    addEightBitFieldSets(list, add1080_1g5_RateSweep, kLow1080, colour);
}
void add720_1g5_standards(VideoStandardList& list, const ColourPair& colour)
{
    // The one-bit depth field of 84h has no full range.
    addFieldSets(list, add720_1g5_RateSweep, k720, std::span(kPlain).first(1), colour);
    addEightBitFieldSets(list, add720_1g5_RateSweep, k720, colour);
}

void addSd_270m_standards(VideoStandardList& list)
{
    // The rate tells 525 lines from 625; ST 259 signals say whether the picture is 4:3 or 16:9.
    for (const PictureRate rate : {PictureRate::Rate29_97, PictureRate::Rate25}) {
        for (const Content& content : kStandardDefinition) {
            for (const AspectRatio aspect : {AspectRatio::FourByThreeOrUnknown, AspectRatio::SixteenByNine}) {
                Creator::addSd_270m(list,
                                    {.transport = TransportFormat::Interlaced,
                                     .picture = PictureFormat::Interlaced,
                                     .rate = rate,
                                     .sampling = content.sampling,
                                     .depth = content.depth,
                                     .aspect = aspect});
            }
        }
    }
}

} // namespace Velmora::Sdi::VideoStandardFamilies
