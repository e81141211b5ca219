#include "server/measure/waveform/ColourMatrix.h"

namespace Velmora::Server::ColourMatrix {

namespace {

using Sdi::PayloadId::Colourimetry;
using WaveformTypes::Component;
using Factors = std::array<double, 3>;

struct Luma {
    double red;
    double blue;
    double green() const { return 1.0 - red - blue; }
};

Luma lumaOf(Colourimetry colourimetry)
{
    switch (colourimetry) {
    case Colourimetry::Rec601:
        return {0.299, 0.114};
    case Colourimetry::Rec2020:
        return {0.2627, 0.0593};
    case Colourimetry::Rec709:
    case Colourimetry::ColVancPacket:
    case Colourimetry::Unknown:
        break;
    }
    return {0.2126, 0.0722};
}

Factors fromRgbTo(Component component, const Luma& luma)
{
    const double cb = 2.0 * (1.0 - luma.blue);
    const double cr = 2.0 * (1.0 - luma.red);
    switch (component) {
    case Component::Y:
        return {luma.red, luma.green(), luma.blue};
    case Component::Cb:
        return {-luma.red / cb, -luma.green() / cb, (1.0 - luma.blue) / cb};
    case Component::Cr:
        return {(1.0 - luma.red) / cr, -luma.green() / cr, -luma.blue / cr};
    case Component::Red:
        return {1.0, 0.0, 0.0};
    case Component::Green:
        return {0.0, 1.0, 0.0};
    case Component::Blue:
    case Component::Alpha:
        break;
    }
    return {0.0, 0.0, 1.0};
}

Factors fromYCbCrTo(Component component, const Luma& luma)
{
    const double blueOfCb = 2.0 * (1.0 - luma.blue);
    const double redOfCr = 2.0 * (1.0 - luma.red);
    switch (component) {
    case Component::Red:
        return {1.0, 0.0, redOfCr};
    case Component::Green:
        return {1.0, -luma.blue * blueOfCb / luma.green(), -luma.red * redOfCr / luma.green()};
    case Component::Blue:
        return {1.0, blueOfCb, 0.0};
    case Component::Cb:
        return {0.0, 1.0, 0.0};
    case Component::Cr:
        return {0.0, 0.0, 1.0};
    case Component::Y:
    case Component::Alpha:
        break;
    }
    return {1.0, 0.0, 0.0};
}

} // namespace

Factors factors(Component component, bool fromRgb, Colourimetry colourimetry)
{
    const Luma luma = lumaOf(colourimetry);
    return fromRgb ? fromRgbTo(component, luma) : fromYCbCrTo(component, luma);
}

} // namespace Velmora::Server::ColourMatrix
