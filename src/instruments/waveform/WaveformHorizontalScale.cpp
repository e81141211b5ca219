#include "instruments/waveform/WaveformHorizontalScale.h"

#include <algorithm>
#include <cmath>

using namespace Velmora::WaveformTypes;

namespace {

/// What a mark needs before marks are put between the quarters of the line.
constexpr double kSpacing = 100.0;

/// The part of the line from one mark to the next.
double percentStep(double lineWidth)
{
    for (const double percent : {0.5, 1.0, 2.0, 5.0, 10.0}) {
        if (lineWidth * percent / 100.0 >= kSpacing)
            return percent / 100.0;
    }
    return 0.25;
}

double pixelStep(double lineWidth, int pixels)
{
    double step = 0.25;
    while (lineWidth * step / 2.0 >= kSpacing && pixels * step > 2.0)
        step /= 2.0;
    return step;
}

} // namespace

std::vector<WaveformHorizontalScale::Mark> WaveformHorizontalScale::marks(const WaveformDisplay& display,
                                                                          const WaveformGeometry& geometry)
{
    std::vector<Mark> marks;
    if (geometry.cells().empty())
        return marks;
    const int width = geometry.cells().front().width();
    const int pixels = display.signal.width;
    const bool isInPixels = display.horizontalScale == HorizontalScale::Pixels;
    const double lineWidth = width * display.view.horizontalMagnification;
    const double step = isInPixels ? pixelStep(lineWidth, pixels) : percentStep(lineWidth);
    for (int i = 0; i * step <= 1.0 + 1e-9; ++i) {
        const double position = i * step;
        const int column = geometry.column(position);
        // The end of the line is the right edge of its last pixel.
        const bool isEnd = column == width && position > 1.0 - 1e-9;
        if (column < 0 || (column >= width && !isEnd))
            continue;
        const int pixel = std::min(static_cast<int>(std::lround(position * pixels)), pixels - 1);
        const QString percent = QString::number(position * 100.0, 'g', 4);
        marks.push_back(
            {isEnd ? width - 1 : column, isInPixels ? QString::number(pixel) : percent, position});
    }
    return marks;
}
