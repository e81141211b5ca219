#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Velmora::Feed {

/// A picture in somebody else's memory: premultiplied ARGB, a 32-bit word for each pixel, as
/// QImage::Format_ARGB32_Premultiplied has it.
struct PictureView {
    const std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0; ///< pixels from one row to the next
    std::uint64_t frame = 0; ///< counts from 1
    std::chrono::nanoseconds timeStamp{0}; ///< std::chrono::steady_clock of the writer's host
};

/// A picture to be filled.
struct PictureBuffer {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0;
};

inline constexpr int kLargestSide = 8192;
inline constexpr std::uint64_t kLargestPictureBytes = 64ULL * 1024 * 1024;

} // namespace Velmora::Feed
