#pragma once

#include "types/sdi/PayloadFieldDefinitions.h"
#include "types/sdi/PayloadIdTypes.h"
#include "types/sdi/SdiTypes.h"

#include <cstdint>

namespace Velmora::Sdi {

/// Set of small codes, one bit each.
using CodeSet = std::uint32_t;

template<typename... Codes>
constexpr CodeSet codeSet(Codes... codes)
{
    return (CodeSet{0} | ... | (CodeSet{1} << static_cast<unsigned>(codes)));
}
constexpr bool contains(CodeSet set, unsigned code)
{
    return code < 32 && ((set >> code) & 1U) != 0;
}

/// Rate sets that the interface standards keep returning to, by ST 352 rate code.
namespace RateSets {
inline constexpr CodeSet kLow = codeSet(2, 3, 5, 6, 7); ///< 23.98 to 30
inline constexpr CodeSet kHigh = codeSet(9, 10, 11); ///< 50 to 60
inline constexpr CodeSet kCinemaHigh = codeSet(4, 8); ///< 47.95, 48: for 2048- and 4096-wide pictures
inline constexpr CodeSet kInterlaced = codeSet(5, 6, 7); ///< i50, i59.94, i60
inline constexpr CodeSet kAll = kLow | kHigh | kCinemaHigh; ///< 2 to 11
} // namespace RateSets

/// Scans as pairs of the transport bit and the picture bit: value 2 x transport + picture.
namespace ScanSets {
inline constexpr CodeSet kInterlaced = codeSet(0);
inline constexpr CodeSet kSegmented =
    codeSet(1); ///< also progressive pictures on a line-interleaved transport
inline constexpr CodeSet kProgressive = codeSet(3);
} // namespace ScanSets

/// How a family writes its depth code.
enum class BitDepthCoding : std::uint8_t {
    General, ///< ST 425-1: 10-bit full range, 10, 12, 12-bit full range
    OneBit, ///< 8 or 10 bits
    S292_1, ///< ST 292-1: 8, 10, reserved, 10-bit full range
};

/// What the channel field numbers, and so how a link or stream is called.
enum class LinkNaming : std::uint8_t {
    None, ///< nothing to number: one link, one identifier
    LinkLetter, ///< LinkA, LinkB
    OneStreamPerLink, ///< DS1_Link1, DS2_Link2 ...
    TwoStreamsPerLink, ///< DS1_Link1, DS2_Link1, DS3_Link2 ...
    LinkNumber, ///< Link1, Link2 ...
};

/// What an identifier of a family may say, for the check against the interface standard.
struct PayloadRules {
    CodeSet rates = 0;
    CodeSet samplings = 0;
    CodeSet depths = 0;
    CodeSet scans = 0;
    bool mayBeWide = false; ///< 2048 (4096) samples allowed

    /// Narrower rules by content, for families that carry both pictures of one word per pixel ("plain": 4:2:2
    /// or 4:2:0, 10 bits) and of two ("extended": all others, therefore at half the rate). Unused when
    /// plainScans is 0.
    CodeSet plainScans = 0;
    CodeSet extendedScans = 0;

    /// First channel whose audio may be a copy of the first link's; unconfirmed, from one source only.
    /// kNoCopyRule where the identifier cannot tell its stream.
    static constexpr unsigned kNoCopyRule = 0xFF;
    unsigned firstChannelWithCopiedAudio = kNoCopyRule;
};

/// Everything that byte 1 of a payload identifier decides.
struct PayloadFamily {
    std::uint8_t byte1 = 0;
    const char* carries = "";
    PayloadIdentifierFieldMap fields;
    BitDepthCoding depthCoding = BitDepthCoding::General;

    unsigned links = 1;
    SdiDataRate linkRate = SdiDataRate::Unknown;
    Level level = Level::None;
    unsigned identifiers = 1; ///< different channel values of the whole standard
    LinkNaming naming = LinkNaming::None;

    SubImagePixelMappingFormat mapping = SubImagePixelMappingFormat::None;
    unsigned subImages = 1;
    unsigned narrowWidth = 1920; ///< of a sub-image, horizontal array code 0
    unsigned wideWidth = 2048; ///< of a sub-image, horizontal array code 1
    unsigned height = 1080; ///< of a sub-image; standard definition decides by its rate

    /// A pixel of an extended colour mode other than 4:2:0 takes two words of each data stream.
    bool extendedNeedsTwoLocations = false;
    bool linesInterleaved = false; ///< progressive pictures at 47.95 and up ride on interlaced 1.5G
    bool receivedAsSingleLinkOnly = false; ///< the instrument sees one of the links at a time

    PayloadRules rules = {};
};

/// The family of a byte 1 value, or null when it is none of the supported ones.
const PayloadFamily* findPayloadFamily(unsigned byte1);

} // namespace Velmora::Sdi
