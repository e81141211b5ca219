#include "instruments/MeterSettingTexts.h"

#include "types/Types.h"
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

std::vector<Setting::Option> scaleOptions()
{
    std::vector<Setting::Option> options;
    for (const auto type : Velmora::Types::getPPMScaleTypesInMenuOrder())
        options.push_back(
            {Velmora::Types::convertPPMScaleTypeToString(type), QString::number(static_cast<int>(type))});
    return options;
}

std::vector<Setting::Option> ballisticsOptions()
{
    std::vector<Setting::Option> options;
    for (const char* const value : {"0", "1", "2", "3", "4"}) {
        const QString number = QString::fromLatin1(value);
        options.push_back({ballistics(number), number});
    }
    return options;
}

Setting::Range hatHoldTimeRange()
{
    Setting::Range range;
    range.minimum = -0.1;
    range.maximum = 10.0;
    range.step = 0.1;
    range.decimals = 1;
    range.unit = QStringLiteral("s");
    range.minimumText = QCoreApplication::translate("MeterSettingTexts", "Infinite");
    range.wraps = true;
    return range;
}

} // namespace MeterSettingTexts
