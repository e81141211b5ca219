#include "types/waveform/WaveformPictures.h"

namespace Velmora::WaveformTypes::Pictures {

std::string imageName(QSize content)
{
    return "waveform-" + std::to_string(content.width()) + 'x' + std::to_string(content.height());
}

} // namespace Velmora::WaveformTypes::Pictures
