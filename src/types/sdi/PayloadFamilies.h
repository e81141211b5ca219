#pragma once

#include "types/sdi/PayloadFamily.h"

#include <array>

/// The supported values of ST 352 byte 1 and what each of them means: one row per family.
namespace Velmora::Sdi::PayloadFamilies {

namespace Detail {

namespace Places = PayloadFieldDefinitions;
using Type = PayloadIdentifierFieldType;

// Field layouts. Byte and bit places follow ST 352:2013 and the family standards named at the rows.

/// ST 259: no transfer curve, colourimetry or transport bit.
inline constexpr auto kSdFields = Places::defaultFieldMap()
                                      .without({Type::TransferCharacteristics, Type::TransportFormat,
                                                Type::Channel, Type::LuminanceAndColourDifferenceSignal})
                                      .with(Type::AspectRatio, Places::contiguousAspectRatioFieldDefinition())
                                      .with(Type::BitDepth, Places::singleBitDepthFieldDefinition());

/// ST 292-1 for 720 lines reserves every bit that could tell transfer curve and colourimetry. HDR on this
/// interface exists all the same, without a standard way to signal it: the places of 85h are used, both here
/// and in the identifiers that are built. Remove the two fields to go back to the standard.
inline constexpr auto k720_1g5Fields =
    Places::defaultFieldMap()
        .without({Type::TransportFormat, Type::HorizontalPixelArraySize, Type::Channel,
                  Type::LuminanceAndColourDifferenceSignal})
        .with(Type::Colourimetry, Places::splitColourimetryFieldDefinition())
        .with(Type::BitDepth, Places::singleBitDepthFieldDefinition());

inline constexpr auto kSplitFields =
    Places::defaultFieldMap()
        .with(Type::AspectRatio, Places::splitAspectRatioFieldDefinition())
        .with(Type::Colourimetry, Places::splitColourimetryFieldDefinition());

inline constexpr auto kContiguousFields =
    Places::defaultFieldMap()
        .with(Type::AspectRatio, Places::contiguousAspectRatioFieldDefinition())
        .with(Type::Colourimetry, Places::contiguousColourimetryFieldDefinition());

inline constexpr auto kDualLinkFields =
    kSplitFields.with(Type::Channel, Places::dualLinkChannelFieldDefinition());

inline constexpr auto kCopyStatus = Places::audioCopyStatusFieldDefinition();

// Sampling and depth codes.

inline constexpr CodeSet k422 = codeSet(0);
inline constexpr CodeSet k422And420 = codeSet(0, 3);
inline constexpr CodeSet k720Extended = codeSet(1, 2, 5, 6, 9, 10);
inline constexpr CodeSet k1080Samplings = codeSet(0, 1, 2, 4, 5, 6, 8, 9, 10, 14);
inline constexpr CodeSet k2160Samplings = k1080Samplings | codeSet(3);
inline constexpr CodeSet kAllDepths = codeSet(0, 1, 2, 3);

inline constexpr CodeSet kAnyScan = ScanSets::kInterlaced | ScanSets::kSegmented | ScanSets::kProgressive;

/// Rules of the 2160-line families that carry 4:2:2 at up to 60 frames and everything else at up to 30.
constexpr PayloadRules fullRules2160(CodeSet plainScans, unsigned firstChannelWithCopiedAudio)
{
    return {.rates = RateSets::kAll,
            .samplings = k2160Samplings,
            .depths = kAllDepths,
            .scans = plainScans | ScanSets::kProgressive,
            .mayBeWide = true,
            .plainScans = plainScans,
            .extendedScans = ScanSets::kProgressive,
            .firstChannelWithCopiedAudio = firstChannelWithCopiedAudio};
}

/// Rules of the 2160-line families whose sub-images are plain 1.5G pictures. Depth codes 2 and 3 are
/// reserved.
constexpr PayloadRules plainRules2160(unsigned firstChannelWithCopiedAudio)
{
    return {.rates = RateSets::kLow,
            .samplings = k422And420,
            .depths = codeSet(0, 1),
            .scans = ScanSets::kProgressive,
            .mayBeWide = true,
            .firstChannelWithCopiedAudio = firstChannelWithCopiedAudio};
}

} // namespace Detail

/// ST 259 with ST 125 (525 lines) and BT.656 (625 lines). 960 samples exist at 360 Mb/s only.
inline constexpr PayloadFamily kSd_270m{.byte1 = 0x81,
                                        .carries = "525i or 625i at 270 Mb/s",
                                        .fields = Detail::kSdFields,
                                        .depthCoding = BitDepthCoding::OneBit,
                                        .linkRate = SdiDataRate::Rate270M,
                                        .narrowWidth = 720,
                                        .wideWidth = 960,
                                        .height = 576,
                                        .rules = {.rates = codeSet(5, 6),
                                                  .samplings = Detail::k422,
                                                  .depths = codeSet(0, 1),
                                                  .scans = ScanSets::kInterlaced}};

/// ST 292-1 with ST 296.
inline constexpr PayloadFamily k720_1g5{.byte1 = 0x84,
                                        .carries = "720-line, one 1.5G link",
                                        .fields = Detail::k720_1g5Fields,
                                        .depthCoding = BitDepthCoding::OneBit,
                                        .linkRate = SdiDataRate::Rate1G5,
                                        .narrowWidth = 1280,
                                        .wideWidth = 1280,
                                        .height = 720,
                                        .rules = {.rates = RateSets::kLow | RateSets::kHigh,
                                                  .samplings = Detail::k422,
                                                  .depths = codeSet(0, 1),
                                                  .scans = ScanSets::kProgressive}};

/// ST 292-1 with ST 274 and ST 2048-2.
inline constexpr PayloadFamily k1080_1g5{.byte1 = 0x85,
                                         .carries = "1080-line, one 1.5G link",
                                         .fields = Detail::kSplitFields.without({Detail::Type::Channel}),
                                         .depthCoding = BitDepthCoding::S292_1,
                                         .linkRate = SdiDataRate::Rate1G5,
                                         .rules = {.rates = RateSets::kLow,
                                                   .samplings = Detail::k422,
                                                   .depths = codeSet(0, 1, 3),
                                                   .scans = Detail::kAnyScan,
                                                   .mayBeWide = true}};

/// ST 372. Checked by closed rules of its class.
inline constexpr PayloadFamily k1080_DualLink1g5{.byte1 = 0x87,
                                                 .carries = "1080-line, two 1.5G links",
                                                 .fields = Detail::kDualLinkFields,
                                                 .links = 2,
                                                 .linkRate = SdiDataRate::Rate1G5,
                                                 .identifiers = 2,
                                                 .naming = LinkNaming::LinkLetter,
                                                 .linesInterleaved = true};

/// ST 425-1 structure 2 with ST 296. Some equipment clears the transport bit, which is not held against it.
inline constexpr PayloadFamily k720_3g{.byte1 = 0x88,
                                       .carries = "720-line, one 3G level A link",
                                       .fields = Detail::kContiguousFields.without(
                                           {Detail::Type::Channel, Detail::Type::HorizontalPixelArraySize}),
                                       .linkRate = SdiDataRate::Rate3G,
                                       .level = Level::A,
                                       .narrowWidth = 1280,
                                       .wideWidth = 1280,
                                       .height = 720,
                                       .extendedNeedsTwoLocations = true,
                                       .rules = {.rates = RateSets::kLow | RateSets::kHigh,
                                                 .samplings = Detail::k720Extended,
                                                 .depths = codeSet(0, 1),
                                                 .scans = ScanSets::kProgressive | ScanSets::kSegmented}};

/// ST 425-1 level A, structures 1 to 4. Checked by closed rules of its class.
inline constexpr PayloadFamily k1080_3g{.byte1 = 0x89,
                                        .carries = "1080-line, one 3G level A link",
                                        .fields = Detail::kContiguousFields.without({Detail::Type::Channel}),
                                        .linkRate = SdiDataRate::Rate3G,
                                        .level = Level::A,
                                        .extendedNeedsTwoLocations = true};

/// ST 425-1 level B-DL: both links of ST 372 on one 3G link.
inline constexpr PayloadFamily k1080_Levelb3g{.byte1 = 0x8A,
                                              .carries = "1080-line, one 3G level B link",
                                              .fields = Detail::kDualLinkFields,
                                              .linkRate = SdiDataRate::Rate3G,
                                              .level = Level::B,
                                              .identifiers = 2,
                                              .naming = LinkNaming::LinkLetter,
                                              .linesInterleaved = true,
                                              .rules = {.rates = RateSets::kAll,
                                                        .samplings = Detail::k1080Samplings,
                                                        .depths = Detail::kAllDepths,
                                                        .scans = Detail::kAnyScan,
                                                        .mayBeWide = true,
                                                        .plainScans = ScanSets::kSegmented,
                                                        .extendedScans = Detail::kAnyScan}};

/// ST 425-3 level B-DS: four 1.5G sub-images, two per link.
inline constexpr PayloadFamily k2160_DualLinkLevelb3g{
    .byte1 = 0x96,
    .carries = "2160-line, two 3G level B links, two streams per link",
    .fields = Detail::kSplitFields.with(Detail::Type::Channel, Detail::Places::fourChannelFieldDefinition())
                  .with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .links = 2,
    .linkRate = SdiDataRate::Rate3G,
    .level = Level::B,
    .identifiers = 4,
    .naming = LinkNaming::TwoStreamsPerLink,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .rules = Detail::plainRules2160(2)};

/// ST 425-5 level A.
inline constexpr PayloadFamily k2160_QuadLink3g{
    .byte1 = 0x97,
    .carries = "2160-line, four 3G level A links",
    .fields =
        Detail::kContiguousFields.with(Detail::Type::Channel, Detail::Places::fourChannelFieldDefinition())
            .with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .links = 4,
    .linkRate = SdiDataRate::Rate3G,
    .level = Level::A,
    .identifiers = 4,
    .naming = LinkNaming::OneStreamPerLink,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .extendedNeedsTwoLocations = true,
    .rules = Detail::fullRules2160(ScanSets::kProgressive, 1)};

/// ST 425-5 level B-DL: as four ST 372 pairs.
inline constexpr PayloadFamily k2160_QuadLinkLevelb3g{
    .byte1 = 0x98,
    .carries = "2160-line, four 3G level B links",
    .fields = Detail::kSplitFields.with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .links = 4,
    .linkRate = SdiDataRate::Rate3G,
    .level = Level::B,
    .identifiers = 8,
    .naming = LinkNaming::TwoStreamsPerLink,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .linesInterleaved = true,
    .rules = Detail::fullRules2160(ScanSets::kSegmented, 2)};

/// ST 2081-10 mode 1.
inline constexpr PayloadFamily k2160_6g{
    .byte1 = 0xC0,
    .carries = "2160-line, one 6G link",
    .fields = Detail::kContiguousFields.with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .linkRate = SdiDataRate::Rate6G,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .rules = Detail::plainRules2160(PayloadRules::kNoCopyRule)};

/// ST 2081-11 mode 1.
inline constexpr PayloadFamily k2160_DualLink6g{
    .byte1 = 0xC2,
    .carries = "2160-line, two 6G links",
    .fields = Detail::kContiguousFields.with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .links = 2,
    .linkRate = SdiDataRate::Rate6G,
    .identifiers = 2,
    .naming = LinkNaming::LinkNumber,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .extendedNeedsTwoLocations = true,
    .rules = Detail::fullRules2160(ScanSets::kProgressive, PayloadRules::kNoCopyRule)};

/// ST 2082-10 mode 1.
inline constexpr PayloadFamily k2160_12g{
    .byte1 = 0xCE,
    .carries = "2160-line, one 12G link",
    .fields = Detail::kContiguousFields.with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .linkRate = SdiDataRate::Rate12G,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .extendedNeedsTwoLocations = true,
    .rules = Detail::fullRules2160(ScanSets::kProgressive, PayloadRules::kNoCopyRule)};

/// ST 2082-12 mode 1. Interleaved twice: each link carries one 2160-line sub-image, which is itself
/// interleaved like 12G. The instrument receives one such link at a time. Place of the channel field and the
/// lack of an 8192-wide form: one source against another.
inline constexpr PayloadFamily k4320_QuadLink12g_SingleOnly{
    .byte1 = 0xD2,
    .carries = "4320-line, four 12G links",
    .fields = Detail::kContiguousFields.with(Detail::Type::AudioCopyStatus, Detail::kCopyStatus),
    .links = 4,
    .linkRate = SdiDataRate::Rate12G,
    .identifiers = 4,
    .naming = LinkNaming::LinkNumber,
    .mapping = SubImagePixelMappingFormat::TwoSampleInterleave,
    .subImages = 4,
    .narrowWidth = 3840,
    .wideWidth = 4096,
    .height = 2160,
    .extendedNeedsTwoLocations = true,
    .receivedAsSingleLinkOnly = true,
    .rules = {.rates = RateSets::kLow | RateSets::kHigh,
              .samplings = Detail::k2160Samplings,
              .depths = Detail::kAllDepths,
              .scans = ScanSets::kProgressive,
              .plainScans = ScanSets::kProgressive,
              .extendedScans = ScanSets::kProgressive,
              .firstChannelWithCopiedAudio = 1}};

inline constexpr std::array kAll{
    &kSd_270m,         &k720_1g5,
    &k1080_1g5,        &k1080_DualLink1g5,
    &k720_3g,          &k1080_3g,
    &k1080_Levelb3g,   &k2160_DualLinkLevelb3g,
    &k2160_QuadLink3g, &k2160_QuadLinkLevelb3g,
    &k2160_6g,         &k2160_DualLink6g,
    &k2160_12g,        &k4320_QuadLink12g_SingleOnly,
};

} // namespace Velmora::Sdi::PayloadFamilies
