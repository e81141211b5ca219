#pragma once

#include <cstdint>

namespace Velmora::Sdi {

/// Nominal rate of one SDI link.
enum class SdiDataRate : std::uint8_t {
    Rate12G = 0,
    Rate6G = 1,
    Rate3G = 2,
    Rate1G5 = 3,
    Rate270M = 4,
    NoSignal = 5,
    Unknown = 6,
};

/// Mapping level of a 3G link (SMPTE ST 425-1); links of other rates have none.
enum class Level : std::uint8_t { None = 0, A = 1, B = 2 };

/// How the sub-images make up the picture.
enum class SubImagePixelMappingFormat : std::uint8_t {
    None = 0,
    TwoSampleInterleave = 1, ///< ST 425-5: pairs of samples dealt out to the sub-images
    SquareDivision = 2, ///< ST 425-5 annex B: each sub-image is one quadrant
};

/// Scan of the picture together with its transport.
enum class InterlacedProgressivePsf : std::uint8_t {
    Undefined = 0,
    Psf = 1,
    Interlaced = 2,
    Progressive = 3
};

/// Picture size and scan in one value; the size is that of the whole picture.
enum class CombinedFormat : std::uint8_t {
    Unknown = 0,
    I720x486,
    I720x576,
    P1280x720,
    I1920x1080,
    Psf1920x1080,
    P1920x1080,
    I2048x1080,
    Psf2048x1080,
    P2048x1080,
    Psf3840x2160,
    P3840x2160,
    Psf4096x2160,
    P4096x2160,
    P7680x4320,
};

/// Frames per second as a fraction; 0/1 where a rate code has none.
struct FrameRate {
    unsigned numerator = 0;
    unsigned denominator = 1;

    constexpr double hertz() const { return static_cast<double>(numerator) / denominator; }
    friend constexpr bool operator==(const FrameRate&, const FrameRate&) = default;
};

} // namespace Velmora::Sdi
