#include "types/ip/IpTypes.h"

#include "types/TextTable.h"

#include <array>

namespace Velmora::IpTypes {

using Types::textOf;

QString convertSampleStructureToString(SampleStructure2110 structure)
{
    static constexpr std::array<const char*, 12> kTexts{
        "YCbCr-4:4:4", "YCbCr-4:2:2", "YCbCr-4:2:0", "CLYCbCr-4:4:4", "CLYCbCr-4:2:2", "CLYCbCr-4:2:0",
        "ICtCp-4:4:4", "ICtCp-4:2:2", "ICtCp-4:2:0", "RGB",           "XYZ",           "KEY"};
    return textOf(structure, kTexts, "");
}

QString convertBitDepthToString(BitDepth2110 depth)
{
    static constexpr std::array<const char*, 5> kTexts{"8", "10", "12", "16", "16f"};
    return textOf(depth, kTexts, "");
}

QString convertRangeToString(Range2110 range)
{
    static constexpr std::array<const char*, 3> kTexts{"NARROW", "FULLPROTECT", "FULL"};
    return textOf(range, kTexts, "");
}

QString convertColorimetryToString(Colorimetry2110 colorimetry)
{
    static constexpr std::array<const char*, 9> kTexts{
        "BT601", "BT709", "BT2020", "BT2100", "ST2065-1", "ST2065-3", "UNSPECIFIED", "XYZ", "ALPHA"};
    return textOf(colorimetry, kTexts, "UNSPECIFIED");
}

QString convertTransferCurveToString(TransferCurve2110 curve)
{
    static constexpr std::array<const char*, 11> kTexts{
        "SDR",      "PQ",      "HLG",     "LINEAR",      "BT2100LINPQ", "BT2100LINHLG",
        "ST2065-1", "ST428-1", "DENSITY", "ST2115LOGS3", "UNSPECIFIED"};
    return textOf(curve, kTexts, "UNSPECIFIED");
}

} // namespace Velmora::IpTypes
