#include "instruments/MeterSettingTexts.h"

#include "types/audio/AudioTypes.h"

#include <QCoreApplication>

#include <limits>

namespace MeterSettingTexts {

QString ballistics(const QString& value)
{
    using Velmora::AudioTypes::AudioMonitor::AudioMonitorBallisticsSelection;
    bool ok = false;
    const unsigned number = value.toUInt(&ok);
    const bool fits = ok && number <= std::numeric_limits<std::uint8_t>::max();
    const QString text =
        fits ? convertBallisticsToString(static_cast<AudioMonitorBallisticsSelection>(number)) : QString();
    return text.isEmpty() ? value : text;
}

QString hatHoldTime(const QString& value)
{
    bool ok = false;
    const double seconds = value.toDouble(&ok);
    if (!ok)
        return value;
    return seconds < 0
        ? QCoreApplication::translate("MeterSettingTexts", "Infinite")
        : QCoreApplication::translate("MeterSettingTexts", "%1 s").arg(QString::number(seconds, 'f', 1));
}

} // namespace MeterSettingTexts
