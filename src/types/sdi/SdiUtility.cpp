#include "types/sdi/SdiUtility.h"

#include "types/TextTable.h"

#include <array>
#include <cstddef>

namespace Velmora::Sdi::SdiUtility {

using namespace PayloadId;
using Types::textOf;

namespace {

using Text = const char*;

struct RateRow {
    Text frames;
    Text fields;
    FrameRate exact;
};

constexpr std::array<RateRow, 16> kRates{{
    {"NoRate", "NoRate", {}},
    {"RsvRate", "RsvRate", {}},
    {"23.98", "47.95", {24000, 1001}},
    {"24", "48", {24, 1}},
    {"47.95", "95.90", {48000, 1001}},
    {"25", "50", {25, 1}},
    {"29.97", "59.94", {30000, 1001}},
    {"30", "60", {30, 1}},
    {"48", "96", {48, 1}},
    {"50", "100", {50, 1}},
    {"59.94", "119.88", {60000, 1001}},
    {"60", "120", {60, 1}},
    {"96", "192", {96, 1}},
    {"100", "200", {100, 1}},
    {"119.88", "239.76", {120000, 1001}},
    {"120", "240", {120, 1}},
}};

} // namespace

QString convertPictureRateToString(PictureRate rate, PictureFormat format)
{
    const auto code = static_cast<std::size_t>(rate);
    if (code >= kRates.size())
        return QStringLiteral("RsvRate");
    const RateRow& row = kRates[code];
    return QString::fromLatin1(format == PictureFormat::Progressive ? row.frames : row.fields);
}

QString convertPictureRateToString(PictureRate rate, InterlacedProgressivePsf scan)
{
    const bool frames =
        scan == InterlacedProgressivePsf::Progressive || scan == InterlacedProgressivePsf::Psf;
    return convertPictureRateToString(rate, frames ? PictureFormat::Progressive : PictureFormat::Interlaced);
}

QString convertSdiRateToString(SdiDataRate rate)
{
    static constexpr std::array<Text, 7> kTexts{"12G", "6G", "3G", "1.5G", "270M", "No Signal", "Unknown"};
    return textOf(rate, kTexts, "Error");
}

QString convertTransferCurveToString(TransferCurve curve)
{
    static constexpr std::array<Text, 4> kTexts{"SDR-TV", "HLG", "PQ", "S-Log3"};
    return textOf(curve, kTexts, "Unknown");
}

QString convertColourimetryToString(Colourimetry colourimetry)
{
    if (colourimetry == Colourimetry::Rec601)
        return QStringLiteral("Rec.601");
    static constexpr std::array<Text, 3> kTexts{"Rec.709", "ColVancPacket", "Rec.2020"};
    return textOf(colourimetry, kTexts, "Unknown");
}

QString convertSampleStructureToString(SampleStructure structure)
{
    static constexpr std::array<Text, 15> kTexts{"YCbCr:422",   "YCbCr:444",   "RGB:444",   "YCbCr:420",
                                                 "YCbCrA:4224", "YCbCrA:4444", "RGBA:4444", "RESERVED",
                                                 "YCbCrD:4224", "YCbCrD:4444", "RGBD:4444", "RESERVED",
                                                 "RESERVED",    "RESERVED",    "X'Y'Z':444"};
    return textOf(structure, kTexts, "RESERVED");
}

QString convertSampleStructureAndColourimetryToExplicitColourSpace(SampleStructure structure,
                                                                   Colourimetry colourimetry)
{
    return convertSampleStructureToString(structure) + QLatin1Char(' ')
        + convertColourimetryToString(colourimetry);
}

QString convertBitDepthToString(BitDepth depth)
{
    static constexpr std::array<Text, 5> kTexts{"10FR", "10", "12", "12FR", "8"};
    return textOf(depth, kTexts, "Reserved");
}

QString convertLuminanceSignalToString(LuminanceAndColourDifferenceSignal signal)
{
    static constexpr std::array<Text, 2> kTexts{"YCbCr", "ICtCp"};
    return textOf(signal, kTexts, "Unknown");
}

QString convertScanToString(InterlacedProgressivePsf scan)
{
    static constexpr std::array<Text, 4> kTexts{"Error", "psf", "i", "p"};
    return textOf(scan, kTexts, "Error");
}

QString convertLevelToString(Level level)
{
    static constexpr std::array<Text, 3> kTexts{"", "A", "B"};
    return textOf(level, kTexts, "Error");
}

QString convertSubImagePixelMappingFormatToString(SubImagePixelMappingFormat format)
{
    static constexpr std::array<Text, 3> kTexts{"", "2-SI", "SqDv"};
    return textOf(format, kTexts, "Error");
}

QString convertLinkCountToString(unsigned links)
{
    switch (links) {
    case 2:
        return QStringLiteral("DL ");
    case 4:
        return QStringLiteral("QL ");
    default:
        return {};
    }
}

CombinedFormat convertToCombinedFormat(unsigned width, unsigned height, InterlacedProgressivePsf scan)
{
    struct Row {
        unsigned width;
        unsigned height;
        InterlacedProgressivePsf scan;
        CombinedFormat format;
    };
    using Scan = InterlacedProgressivePsf;
    static constexpr std::array kRows{
        Row{720, 486, Scan::Interlaced, CombinedFormat::I720x486},
        Row{720, 576, Scan::Interlaced, CombinedFormat::I720x576},
        Row{1280, 720, Scan::Progressive, CombinedFormat::P1280x720},
        Row{1920, 1080, Scan::Interlaced, CombinedFormat::I1920x1080},
        Row{1920, 1080, Scan::Psf, CombinedFormat::Psf1920x1080},
        Row{1920, 1080, Scan::Progressive, CombinedFormat::P1920x1080},
        Row{2048, 1080, Scan::Interlaced, CombinedFormat::I2048x1080},
        Row{2048, 1080, Scan::Psf, CombinedFormat::Psf2048x1080},
        Row{2048, 1080, Scan::Progressive, CombinedFormat::P2048x1080},
        Row{3840, 2160, Scan::Psf, CombinedFormat::Psf3840x2160},
        Row{3840, 2160, Scan::Progressive, CombinedFormat::P3840x2160},
        Row{4096, 2160, Scan::Psf, CombinedFormat::Psf4096x2160},
        Row{4096, 2160, Scan::Progressive, CombinedFormat::P4096x2160},
        Row{7680, 4320, Scan::Progressive, CombinedFormat::P7680x4320},
    };
    for (const Row& row : kRows) {
        if (row.width == width && row.height == height && row.scan == scan)
            return row.format;
    }
    return CombinedFormat::Unknown;
}

FrameRate convertPictureRateToFrameRate(PictureRate rate)
{
    const auto code = static_cast<std::size_t>(rate);
    return code < kRates.size() ? kRates[code].exact : FrameRate{};
}

bool isPictureRate1001(PictureRate rate)
{
    return convertPictureRateToFrameRate(rate).denominator == 1001;
}

} // namespace Velmora::Sdi::SdiUtility
