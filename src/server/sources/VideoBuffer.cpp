#include "server/sources/VideoBuffer.h"

#include "server/sources/VideoFormats.h"

#include <algorithm>

namespace Velmora::Server {

VideoBuffer::VideoBuffer(const VideoFormat& format)
    : m_format(format)
    , m_planeCount(VideoFormats::hasAlpha(format.sampling) ? 4 : 3)
{
    constexpr int kAlignedSamples = kAlignment / sizeof(std::uint16_t);
    const int chromaWidth =
        VideoFormats::isChromaHalved(format.sampling) ? (format.width + 1) / 2 : format.width;
    m_widths = {format.width, chromaWidth, chromaWidth, m_planeCount == 4 ? format.width : 0};
    std::size_t size = 0;
    for (std::size_t plane = 0; plane < 4; ++plane) {
        m_strides[plane] = (m_widths[plane] + kAlignedSamples - 1) / kAlignedSamples * kAlignedSamples;
        m_offsets[plane] = size;
        size += static_cast<std::size_t>(m_strides[plane]) * static_cast<std::size_t>(format.height);
    }
    m_samples.reset(new (std::align_val_t(kAlignment)) std::uint16_t[size]());
}

VideoFrame VideoBuffer::frame(std::uint64_t number, std::chrono::nanoseconds timeStamp) const
{
    VideoFrame frame{.format = m_format, .planes = {}, .number = number, .timeStamp = timeStamp};
    for (std::size_t plane = 0; plane < static_cast<std::size_t>(m_planeCount); ++plane)
        frame.planes[plane] = {m_samples.get() + m_offsets[plane], m_widths[plane], m_format.height,
                               m_strides[plane]};
    return frame;
}

} // namespace Velmora::Server
