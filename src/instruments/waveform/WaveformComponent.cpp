#include "instruments/waveform/WaveformComponent.h"

#include "types/waveform/WaveformTexts.h"

namespace WaveformComponent {

QString nameOf(Component component)
{
    return QString::fromLatin1(
        Velmora::WaveformTypes::Texts::kComponents[static_cast<std::size_t>(component)]);
}

QString letterOf(Component component)
{
    return Velmora::WaveformTypes::isColourDifference(component) ? nameOf(component)
                                                                 : nameOf(component).left(1);
}

} // namespace WaveformComponent
