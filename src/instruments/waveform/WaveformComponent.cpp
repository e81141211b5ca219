#include "instruments/waveform/WaveformComponent.h"

namespace WaveformComponent {

QString nameOf(Component component)
{
    switch (component) {
    case Component::Y:
        return QStringLiteral("Y");
    case Component::Cb:
        return QStringLiteral("Cb");
    case Component::Cr:
        return QStringLiteral("Cr");
    case Component::Red:
        return QStringLiteral("Red");
    case Component::Green:
        return QStringLiteral("Green");
    case Component::Blue:
        return QStringLiteral("Blue");
    case Component::Alpha:
        break;
    }
    return QStringLiteral("Alpha");
}

QString letterOf(Component component)
{
    return Velmora::WaveformTypes::isColourDifference(component) ? nameOf(component)
                                                                 : nameOf(component).left(1);
}

} // namespace WaveformComponent
