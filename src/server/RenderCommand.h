#pragma once

#include "server/core/SignalInput.h"
#include "server/measure/waveform/WaveformSettings.h"

#include <QSize>
#include <QString>

namespace Velmora::Server {

/// A picture to be made without serving anybody.
struct RenderRequest {
    QString measurement; ///< empty: none
    QString output; ///< a PNG file
    int frame = 0; ///< counted from 0
    QSize content{1920, 1050}; ///< of the window that would show it
    WaveformSettings settings;
};

/// Draws what the instrument would show, on black; the exit code. What goes wrong is said in one line on
/// standard error.
int render(const RenderRequest& request, const SignalChoice& signal, unsigned seed);

} // namespace Velmora::Server
