#include "types/health/HealthReading.h"

#include <cmath>

namespace {

constexpr int kItemsPerReading = 4;

} // namespace

QString HealthReading::text() const
{
    return QString::number(value, 'f', 0) + QLatin1Char(' ') + unit;
}

QStringList HealthReading::toItems(const std::vector<HealthReading>& readings)
{
    QStringList items;
    for (const HealthReading& reading : readings)
        items << reading.name << reading.unit << QString::number(reading.value)
              << QString::number(reading.limit);
    return items;
}

std::vector<HealthReading> HealthReading::fromItems(const QStringList& items)
{
    std::vector<HealthReading> readings;
    for (int i = 0; i + kItemsPerReading <= items.size(); i += kItemsPerReading) {
        bool isValue = false;
        bool isLimit = false;
        const HealthReading reading{items[i], items[i + 1], items[i + 2].toDouble(&isValue),
                                    items[i + 3].toDouble(&isLimit)};
        if (!isValue || !isLimit || !std::isfinite(reading.value) || !std::isfinite(reading.limit))
            break;
        readings.push_back(reading);
    }
    return readings;
}
