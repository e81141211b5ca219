#pragma once

#include "server/sources/VideoFrame.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace Velmora::Server {

/// Owns the planes of one picture, zeroed at first. Lines begin at multiples of 64 bytes.
class VideoBuffer {
public:
    explicit VideoBuffer(const VideoFormat& format);

    const VideoFormat& format() const { return m_format; }
    /// 3 or, with alpha, 4.
    int planeCount() const { return m_planeCount; }
    /// Of a component, 0 to planeCount() - 1.
    int planeWidth(int plane) const { return m_widths[static_cast<std::size_t>(plane)]; }
    std::ptrdiff_t stride(int plane) const { return m_strides[static_cast<std::size_t>(plane)]; }
    std::uint16_t* line(int plane, int y)
    {
        return m_samples.get() + m_offsets[static_cast<std::size_t>(plane)] + y * stride(plane);
    }

    /// The picture as a frame, valid as long as the buffer.
    VideoFrame frame(std::uint64_t number, std::chrono::nanoseconds timeStamp) const;

private:
    static constexpr std::size_t kAlignment = 64;
    struct Free {
        void operator()(std::uint16_t* samples) const
        {
            ::operator delete[](samples, std::align_val_t(kAlignment));
        }
    };

    VideoFormat m_format;
    int m_planeCount;
    std::array<int, 4> m_widths{};
    std::array<std::ptrdiff_t, 4> m_strides{};
    std::array<std::size_t, 4> m_offsets{};
    std::unique_ptr<std::uint16_t[], Free> m_samples;
};

} // namespace Velmora::Server
