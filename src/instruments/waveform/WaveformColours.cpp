#include "instruments/waveform/WaveformColours.h"

ColourRole WaveformColours::roleOf(Velmora::WaveformTypes::Component component)
{
    using Velmora::WaveformTypes::Component;
    switch (component) {
    case Component::Y:
        return ColourRole::ComponentY;
    case Component::Cb:
        return ColourRole::ComponentCb;
    case Component::Cr:
        return ColourRole::ComponentCr;
    case Component::Red:
        return ColourRole::ComponentR;
    case Component::Green:
        return ColourRole::ComponentG;
    case Component::Blue:
        return ColourRole::ComponentB;
    case Component::Alpha:
        break;
    }
    return ColourRole::ComponentAlpha;
}
