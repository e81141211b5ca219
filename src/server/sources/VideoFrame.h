#pragma once

#include "types/sdi/PayloadIdTypes.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Velmora::Server {

/// What the samples of a picture mean.
struct VideoFormat {
    int width = 0; ///< luma samples of a line
    int height = 0; ///< lines of a frame, both fields together
    int rateNumerator = 0; ///< frames per second are rateNumerator / rateDenominator
    int rateDenominator = 1;
    bool interlaced = false; ///< the lines of a frame belong to two moments
    bool topFieldFirst =
        true; ///< when interlaced: whether line 0 is of the earlier field (525 lines: it is not)
    Sdi::PayloadId::SampleStructure sampling = Sdi::PayloadId::SampleStructure::YCbCr422;
    Sdi::PayloadId::BitDepth depth = Sdi::PayloadId::BitDepth::Bits10;
    Sdi::PayloadId::Colourimetry colourimetry = Sdi::PayloadId::Colourimetry::Rec709;
    Sdi::PayloadId::TransferCurve transfer = Sdi::PayloadId::TransferCurve::SdrTv;

    friend bool operator==(const VideoFormat&, const VideoFormat&) = default;
};

/// A view of one component. Samples are code values of the format's bit depth in the low bits.
struct VideoPlane {
    const std::uint16_t* samples = nullptr; ///< null: the picture lacks this component
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0; ///< samples from one line to the next

    const std::uint16_t* line(int y) const { return samples + y * stride; }
};

/// A view of one frame; whoever hands it out says for how long it holds.
struct VideoFrame {
    VideoFormat format;
    /// Y, Cb, Cr, alpha or R, G, B, alpha.
    std::array<VideoPlane, 4> planes;
    std::uint64_t number = 0; ///< counted from the start of the source, without gaps
    std::chrono::nanoseconds timeStamp{0}; ///< of the frame's start, since the start of the source
};

} // namespace Velmora::Server
