#include "presets/PresetPacket.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QJsonArray>

#include <cmath>
#include <limits>

namespace {

template<typename Integer>
bool isIntegerOf(const QJsonValue& value)
{
    if (!value.isDouble())
        return false;
    const double number = value.toDouble();
    return number == std::trunc(number) && number >= double(std::numeric_limits<Integer>::min())
        && number <= double(std::numeric_limits<Integer>::max());
}

} // namespace

bool PresetPacket::containsType(QLatin1String key, QJsonValue::Type type) const
{
    return value(key).type() == type;
}

bool PresetPacket::containsInt(QLatin1String key) const
{
    return isIntegerOf<int>(value(key));
}

bool PresetPacket::containsUnsigned(QLatin1String key) const
{
    return isIntegerOf<quint32>(value(key));
}

int PresetPacket::intValue(QLatin1String key) const
{
    return containsInt(key) ? static_cast<int>(value(key).toDouble()) : 0;
}

quint32 PresetPacket::unsignedValue(QLatin1String key) const
{
    return containsUnsigned(key) ? static_cast<quint32>(value(key).toDouble()) : 0;
}

std::vector<SerialisableDataPacket> PresetPacket::nestedPackets(QLatin1String key) const
{
    std::vector<SerialisableDataPacket> packets;
    const QJsonArray array = value(key).toArray();
    packets.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValue& entry : array)
        packets.push_back(fromJson(entry.toObject()));
    return packets;
}

void PresetPacket::logForeignClass(const QString& found, const QString& expected)
{
    static Velmora::LogThrottle throttle;
    throttle.log(spdlog::level::warn, "Preset holds \"{}\" where \"{}\" is expected: left out", found,
                 expected);
}
