#pragma once

#include <cstdint>

/// Field values of the SMPTE ST 352 payload identifier. Every enumerator has the numeric code of its field,
/// so a value read from an identifier may also be a code that has no enumerator; the texts for those are in
/// SdiUtility.
namespace Velmora::Sdi::PayloadId {

/// Scan of the picture, ST 352 byte 2 bit 6.
enum class PictureFormat : std::uint8_t { Interlaced = 0, Progressive = 1 };

/// Scan of the transport, ST 352 byte 2 bit 7; a segmented picture has an interlaced transport.
enum class TransportFormat : std::uint8_t { Interlaced = 0, Progressive = 1 };

/// Frames per second, ST 352 table 2; 12 to 15 from ST 2081-10. Interlaced pictures, too, are coded by frame.
enum class PictureRate : std::uint8_t {
    None = 0,
    Reserved = 1,
    Rate23_98 = 2,
    Rate24 = 3,
    Rate47_95 = 4,
    Rate25 = 5,
    Rate29_97 = 6,
    Rate30 = 7,
    Rate48 = 8,
    Rate50 = 9,
    Rate59_94 = 10,
    Rate60 = 11,
    Rate96 = 12,
    Rate100 = 13,
    Rate119_88 = 14,
    Rate120 = 15,
};

/// Components and their sampling, ST 352 table 3. A is an alpha component, D a data component.
enum class SampleStructure : std::uint8_t {
    YCbCr422 = 0,
    YCbCr444 = 1,
    Rgb444 = 2,
    YCbCr420 = 3,
    YCbCrA4224 = 4,
    YCbCrA4444 = 5,
    RgbA4444 = 6,
    YCbCrD4224 = 8,
    YCbCrD4444 = 9,
    RgbD4444 = 10,
    Xyz444 = 14,
};

/// Bits per sample and their range. 0 to 3 are the codes of ST 425-1; 8-bit and Reserved exist in families
/// that code their depth in another way and have numbers of our own.
enum class BitDepth : std::uint8_t {
    Bits10FullRange = 0,
    Bits10 = 1,
    Bits12 = 2,
    Bits12FullRange = 3,
    Bits8 = 4,
    Reserved = 5,
};

/// Colour primaries. Rec601 is no code of the field: it is reported for standard definition, which has none.
enum class Colourimetry : std::uint16_t {
    Rec709 = 0,
    ColVancPacket = 1, ///< told by a separate ancillary packet, ST 2048-1
    Rec2020 = 2,
    Unknown = 3,
    Rec601 = 999,
};

/// Opto-electronic transfer, ST 352 byte 2 bits 5 and 4. The standard leaves code 3 unspecified; in this
/// system it means S-Log3 everywhere.
enum class TransferCurve : std::uint8_t { SdrTv = 0, Hlg = 1, Pq = 2, SLog3 = 3 };

/// What the aspect bit says. Code 0 is 4:3 in standard definition and "not 16:9 or not known" elsewhere.
enum class AspectRatio : std::uint8_t { FourByThreeOrUnknown = 0, SixteenByNine = 1 };

/// Active samples per line of a sub-image: 1920 or 2048 (720 or 960 in standard definition).
enum class HorizontalPixelArraySize : std::uint8_t { Size1920 = 0, Size2048 = 1 };

enum class AudioCopyStatus : std::uint8_t { Additional = 0, CopyOfFirstLink = 1 };

enum class LuminanceAndColourDifferenceSignal : std::uint8_t { YCbCr = 0, ICtCp = 1 };

} // namespace Velmora::Sdi::PayloadId
