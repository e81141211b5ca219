#pragma once

#include "server/measure/waveform/WaveformSettings.h"
#include "server/sources/VideoFrame.h"

#include <QImage>

namespace Velmora::Server {

/// The waveform of one frame as the instrument would send it for a window with a content of @p contentSize;
/// null when that is too small.
QImage renderWaveform(const VideoFrame& frame, const WaveformSettings& settings, QSize contentSize);

} // namespace Velmora::Server
