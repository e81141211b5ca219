#pragma once

#include "server/sources/VideoBuffer.h"
#include "server/sources/VideoSource.h"
#include "server/sources/patterns/Pattern.h"

#include <memory>
#include <optional>

namespace Velmora::Server {

/// A test pattern as a source of pictures without end. Nothing is painted before the first frame is asked
/// for, and from then on only what moves.
class PatternGenerator : public VideoSource {
public:
    PatternGenerator(std::unique_ptr<Pattern> pattern, const VideoFormat& format);

    const VideoFormat& format() const override { return m_format; }
    const VideoFrame* next() override;

private:
    std::unique_ptr<Pattern> m_pattern;
    VideoFormat m_format;
    std::uint64_t m_next = 0;
    std::optional<VideoBuffer> m_buffer;
    std::optional<PictureCanvas> m_canvas;
    VideoFrame m_frame;
};

} // namespace Velmora::Server
