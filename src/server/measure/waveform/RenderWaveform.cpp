#include "server/measure/waveform/RenderWaveform.h"

#include "server/measure/waveform/WaveformRasteriser.h"

namespace Velmora::Server {

QImage renderWaveform(const VideoFrame& frame, const WaveformSettings& settings, QSize contentSize)
{
    WaveformRasteriser rasteriser;
    rasteriser.setSettings(settings);
    rasteriser.setContentSize(contentSize);
    QImage image(rasteriser.imageSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    rasteriser.render(frame,
                      {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
                       image.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(std::uint32_t))});
    return image;
}

} // namespace Velmora::Server
