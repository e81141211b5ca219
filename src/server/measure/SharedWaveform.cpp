#include "server/measure/SharedWaveform.h"

#include "feed/SegmentNames.h"
#include "types/waveform/WaveformPictures.h"

namespace Velmora::Server {

SharedWaveform::SharedWaveform(int instrumentPort, QSize content)
    : m_content(content)
    , m_writer(Feed::SegmentNames::nameOf(instrumentPort, WaveformTypes::Pictures::imageName(content)))
{
    m_rasteriser.setContentSize(content);
    m_rasteriser.setParallel(true);
}

PixelBuffer SharedWaveform::begin()
{
    const QSize size = m_rasteriser.imageSize();
    const auto buffer = m_writer.begin(size.width(), size.height());
    return {buffer.pixels, buffer.width, buffer.height, buffer.stride};
}

void SharedWaveform::draw(const VideoFrame& frame, std::chrono::nanoseconds timeStamp)
{
    const PixelBuffer buffer = begin();
    if (!buffer.pixels)
        return;
    m_rasteriser.render(frame, buffer);
    m_writer.publish(timeStamp);
}

void SharedWaveform::drawLoss(std::chrono::nanoseconds timeStamp)
{
    const PixelBuffer buffer = begin();
    if (buffer.pixels && m_rasteriser.renderLoss(buffer))
        m_writer.publish(timeStamp);
}

} // namespace Velmora::Server
