#include "server/sources/patterns/ZonePlate.h"

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace Velmora::Server {

namespace {

/// The phase's rotation by the distance along one axis. The phase is a sum of both axes, so that the whole
/// picture follows from a product for each pixel.
std::vector<std::complex<float>> rotations(int size, double phasePerSquare)
{
    std::vector<std::complex<float>> result;
    for (int i = 0; i < size; ++i) {
        const double distance = i - size / 2;
        result.emplace_back(std::polar(1.0, phasePerSquare * distance * distance));
    }
    return result;
}

} // namespace

void ZonePlate::paint(PictureCanvas& canvas) const
{
    // The phase k r^2 advances by 2 k r a pixel, which is pi, half a cycle, at r = width / 2.
    const double phasePerSquare = std::numbers::pi / canvas.width();
    const auto columns = rotations(canvas.width(), phasePerSquare);
    const auto lines = rotations(canvas.height(), phasePerSquare);
    const float black = canvas.codes().level(0.0);
    const float span = canvas.codes().level(1.0) - black;
    for (int y = 0; y < canvas.height(); ++y) {
        const auto line = lines[static_cast<std::size_t>(y)];
        for (int x = 0; x < canvas.width(); ++x) {
            const auto column = columns[static_cast<std::size_t>(x)];
            const float wave = column.real() * line.real() - column.imag() * line.imag();
            const auto code = static_cast<std::uint16_t>(black + span * (0.5F + 0.5F * wave) + 0.5F);
            canvas.setPixel(x, y, canvas.codes().greyCode(code));
        }
    }
}

} // namespace Velmora::Server
