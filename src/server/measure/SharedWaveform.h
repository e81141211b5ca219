#pragma once

#include "feed/SharedPictureWriter.h"
#include "server/measure/waveform/WaveformRasteriser.h"

#include <chrono>

namespace Velmora::Server {

/// The waveform for windows of one size, drawn straight into the picture feed.
class SharedWaveform {
public:
    SharedWaveform(int instrumentPort, QSize content);

    QSize content() const { return m_content; }
    void setSettings(const WaveformSettings& settings) { m_rasteriser.setSettings(settings); }

    /// @p timeStamp is that of the frame, of std::chrono::steady_clock.
    void draw(const VideoFrame& frame, std::chrono::nanoseconds timeStamp);
    void drawLoss(std::chrono::nanoseconds timeStamp);

private:
    PixelBuffer begin();

    const QSize m_content;
    WaveformRasteriser m_rasteriser;
    Feed::SharedPictureWriter m_writer;
};

} // namespace Velmora::Server
