#include "types/ip/IpTypes.h"

#include "types/TextTable.h"

#include <array>

namespace Velmora::IpTypes {

using Types::codeOf;
using Types::textOf;

namespace {

constexpr std::array<const char*, 12> kSampleStructures{
    "YCbCr-4:4:4", "YCbCr-4:2:2", "YCbCr-4:2:0", "CLYCbCr-4:4:4", "CLYCbCr-4:2:2", "CLYCbCr-4:2:0",
    "ICtCp-4:4:4", "ICtCp-4:2:2", "ICtCp-4:2:0", "RGB",           "XYZ",           "KEY"};
constexpr std::array<const char*, 5> kBitDepths{"8", "10", "12", "16", "16f"};
constexpr std::array<const char*, 3> kRanges{"NARROW", "FULLPROTECT", "FULL"};
constexpr std::array<const char*, 9> kColorimetries{"BT601",    "BT709",       "BT2020", "BT2100", "ST2065-1",
                                                    "ST2065-3", "UNSPECIFIED", "XYZ",    "ALPHA"};
constexpr std::array<const char*, 11> kTransferCurves{"SDR",         "PQ",           "HLG",        "LINEAR",
                                                      "BT2100LINPQ", "BT2100LINHLG", "ST2065-1",   "ST428-1",
                                                      "DENSITY",     "ST2115LOGS3",  "UNSPECIFIED"};

} // namespace

QString convertSampleStructureToString(SampleStructure2110 structure)
{
    return textOf(structure, kSampleStructures, "");
}

QString convertBitDepthToString(BitDepth2110 depth)
{
    return textOf(depth, kBitDepths, "");
}

QString convertRangeToString(Range2110 range)
{
    return textOf(range, kRanges, "");
}

QString convertColorimetryToString(Colorimetry2110 colorimetry)
{
    return textOf(colorimetry, kColorimetries, "UNSPECIFIED");
}

QString convertTransferCurveToString(TransferCurve2110 curve)
{
    return textOf(curve, kTransferCurves, "UNSPECIFIED");
}

std::optional<SampleStructure2110> convertStringToSampleStructure(const QString& text)
{
    return codeOf<SampleStructure2110>(text, kSampleStructures);
}

std::optional<BitDepth2110> convertStringToBitDepth(const QString& text)
{
    return codeOf<BitDepth2110>(text, kBitDepths);
}

std::optional<Range2110> convertStringToRange(const QString& text)
{
    return codeOf<Range2110>(text, kRanges);
}

std::optional<Colorimetry2110> convertStringToColorimetry(const QString& text)
{
    return codeOf<Colorimetry2110>(text, kColorimetries);
}

std::optional<TransferCurve2110> convertStringToTransferCurve(const QString& text)
{
    return codeOf<TransferCurve2110>(text, kTransferCurves);
}

} // namespace Velmora::IpTypes
