#include "types/audio/AudioTypes.h"

namespace Velmora::AudioTypes::AudioMonitor {

QString convertBallisticsToString(AudioMonitorBallisticsSelection ballistics)
{
    switch (ballistics) {
    case AudioMonitorBallisticsSelection::PpmTypeI:
        return QStringLiteral("PPM Type I");
    case AudioMonitorBallisticsSelection::PpmTypeII:
        return QStringLiteral("PPM Type II");
    case AudioMonitorBallisticsSelection::Vu:
        return QStringLiteral("Vu");
    case AudioMonitorBallisticsSelection::VuFr:
        return QStringLiteral("VuFr");
    case AudioMonitorBallisticsSelection::Fast:
        return QStringLiteral("Fast");
    }
    return {};
}

} // namespace Velmora::AudioTypes::AudioMonitor
