#pragma once

#include "types/sdi/PayloadIdTypes.h"
#include "types/sdi/SdiTypes.h"

#include <QString>

/// The one place where SDI field values become texts. Each function takes any value of its type: a code
/// outside its table gives the table's fallback text.
namespace Velmora::Sdi::SdiUtility {

/// "59.94" and so on; twice the coded frame rate, the field rate, unless @p format is progressive. Fallback
/// "RsvRate".
QString convertPictureRateToString(PayloadId::PictureRate rate, PayloadId::PictureFormat format);
/// The same by the scan as named: the field rate unless it is p or psf.
QString convertPictureRateToString(PayloadId::PictureRate rate, InterlacedProgressivePsf scan);
/// "3G" and so on; fallback "Error".
QString convertSdiRateToString(SdiDataRate rate);
/// "SDR-TV", "HLG", "PQ", "S-Log3"; fallback "Unknown".
QString convertTransferCurveToString(PayloadId::TransferCurve curve);
/// "Rec.709" and so on; fallback "Unknown".
QString convertColourimetryToString(PayloadId::Colourimetry colourimetry);
/// "YCbCr:422" and so on; fallback "RESERVED".
QString convertSampleStructureToString(PayloadId::SampleStructure structure);
/// Components and primaries, "RGB:444 Rec.2020".
QString convertSampleStructureAndColourimetryToExplicitColourSpace(PayloadId::SampleStructure structure,
                                                                   PayloadId::Colourimetry colourimetry);
/// "10FR", "10", "12", "12FR", "8"; fallback "Reserved".
QString convertBitDepthToString(PayloadId::BitDepth depth);
/// "YCbCr" or "ICtCp"; fallback "Unknown".
QString convertLuminanceSignalToString(PayloadId::LuminanceAndColourDifferenceSignal signal);
/// "psf", "i", "p"; fallback "Error".
QString convertScanToString(InterlacedProgressivePsf scan);
/// "A", "B", nothing for links without a level; fallback "Error".
QString convertLevelToString(Level level);
/// "2-SI", "SqDv", nothing for None; fallback "Error".
QString convertSubImagePixelMappingFormatToString(SubImagePixelMappingFormat format);
/// "DL " for two links, "QL " for four, otherwise nothing.
QString convertLinkCountToString(unsigned links);

/// Size and scan as one value; Unknown for a combination that no supported standard has.
CombinedFormat convertToCombinedFormat(unsigned width, unsigned height, InterlacedProgressivePsf scan);

/// Frames per second of a rate code (ST 352 table 2); 0/1 for codes 0, 1 and above 15.
FrameRate convertPictureRateToFrameRate(PayloadId::PictureRate rate);

/// Whether the rate is a multiple of 1000/1001 frames per second.
bool isPictureRate1001(PayloadId::PictureRate rate);

} // namespace Velmora::Sdi::SdiUtility
