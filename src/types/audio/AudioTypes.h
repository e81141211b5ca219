#pragma once

#include <QMetaType>
#include <QString>

#include <cstdint>

namespace Velmora::AudioTypes::AudioMonitor {

/// Ballistics of the level meters, applied by the instrument; the values are those on the wire.
enum class AudioMonitorBallisticsSelection : std::uint8_t {
    PpmTypeI = 0,
    PpmTypeII = 1,
    Vu = 2,
    VuFr = 3,
    Fast = 4,
};

/// The option text; empty for any other value.
QString convertBallisticsToString(AudioMonitorBallisticsSelection ballistics);

} // namespace Velmora::AudioTypes::AudioMonitor

Q_DECLARE_METATYPE(Velmora::AudioTypes::AudioMonitor::AudioMonitorBallisticsSelection)
