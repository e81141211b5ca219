#include "server/sources/patterns/LevelSweeps.h"

#include <cmath>

namespace Velmora::Server {

void LevelRamp::paint(PictureCanvas& canvas) const
{
    canvas.fillLines(0, canvas.height(), [&](int x) {
        return canvas.codes().grey(static_cast<double>(x) / (canvas.width() - 1));
    });
}

void FullRangeSweep::paint(PictureCanvas& canvas) const
{
    const CodeValues& codes = canvas.codes();
    const double span = codes.highest() - codes.lowest();
    const auto middle = static_cast<std::uint16_t>(1U << (codes.bits() - 1));
    for (int component = 0; component < 3; ++component) {
        const int y0 = canvas.height() * component / 3;
        const int y1 = canvas.height() * (component + 1) / 3;
        canvas.fillLines(y0, y1, [&](int x) {
            Colour colour{middle, middle, middle};
            const double code = codes.lowest() + span * x / (canvas.width() - 1);
            colour[static_cast<std::size_t>(component)] = static_cast<std::uint16_t>(std::lround(code));
            return colour;
        });
    }
}

} // namespace Velmora::Server
