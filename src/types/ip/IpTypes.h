#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// Field values of ST 2110 flows. The texts are those of SMPTE ST 2110-20:2022 clauses 7.2 and 7.3, letter
/// for letter, as they stand in SDP.
namespace Velmora::IpTypes {

enum class SampleStructure2110 : std::uint8_t {
    YCbCr444,
    YCbCr422,
    YCbCr420,
    ClYCbCr444, ///< constant luminance
    ClYCbCr422,
    ClYCbCr420,
    ICtCp444,
    ICtCp422,
    ICtCp420,
    Rgb,
    Xyz,
    Key, ///< one channel: alpha as a flow of its own
};

enum class BitDepth2110 : std::uint8_t { Bits8, Bits10, Bits12, Bits16, Bits16Float };

enum class Range2110 : std::uint8_t {
    Narrow,
    FullProtect, ///< all codes but those that SDI needs for timing
    Full,
};

enum class Colorimetry2110 : std::uint8_t {
    Bt601,
    Bt709,
    Bt2020,
    Bt2100,
    St2065_1,
    St2065_3,
    Unspecified,
    Xyz,
    Alpha,
};

enum class TransferCurve2110 : std::uint8_t {
    Sdr,
    Pq,
    Hlg,
    Linear,
    Bt2100LinPq,
    Bt2100LinHlg,
    St2065_1,
    St428_1,
    Density,
    St2115LogS3,
    Unspecified,
};

/// "YCbCr-4:2:2" and so on; empty for a code outside the enumeration.
QString convertSampleStructureToString(SampleStructure2110 structure);
/// "8", "10", "12", "16", "16f"; empty for a code outside the enumeration.
QString convertBitDepthToString(BitDepth2110 depth);
/// "NARROW", "FULLPROTECT", "FULL"; empty for a code outside the enumeration.
QString convertRangeToString(Range2110 range);
/// "BT709" and so on; "UNSPECIFIED" for a code outside the enumeration.
QString convertColorimetryToString(Colorimetry2110 colorimetry);
/// "SDR", "PQ", "HLG" and so on; "UNSPECIFIED" for a code outside the enumeration.
QString convertTransferCurveToString(TransferCurve2110 curve);

// Back from those texts, letter for letter; nothing for any other text.
std::optional<SampleStructure2110> convertStringToSampleStructure(const QString& text);
std::optional<BitDepth2110> convertStringToBitDepth(const QString& text);
std::optional<Range2110> convertStringToRange(const QString& text);
std::optional<Colorimetry2110> convertStringToColorimetry(const QString& text);
std::optional<TransferCurve2110> convertStringToTransferCurve(const QString& text);

} // namespace Velmora::IpTypes
