#include "server/sources/PatternGenerator.h"

#include "server/sources/VideoFormats.h"

namespace Velmora::Server {

PatternGenerator::PatternGenerator(std::unique_ptr<Pattern> pattern, const VideoFormat& format)
    : m_pattern(std::move(pattern))
    , m_format(format)
{
}

const VideoFrame* PatternGenerator::next()
{
    if (m_canvas) {
        m_pattern->advance(*m_canvas, m_next);
    } else {
        m_buffer.emplace(m_format);
        m_canvas.emplace(*m_buffer);
        m_pattern->paint(*m_canvas);
    }
    m_frame = m_buffer->frame(m_next, VideoFormats::timeOfFrame(m_format, m_next));
    ++m_next;
    return &m_frame;
}

} // namespace Velmora::Server
