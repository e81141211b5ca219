#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// What one sensor of the instrument reads. A value.
struct HealthReading {
    QString name;
    QString unit; ///< "°C" or "rpm"
    double value = 0;
    double limit = 0; ///< in the same unit; 0 where the sensor knows none

    /// Too hot. A fan has no such limit.
    bool isAlarm() const { return limit > 0 && value >= limit; }
    /// "47 °C".
    QString text() const;

    /// As an element holds them: name, unit, value and limit of one after the other.
    static QStringList toItems(const std::vector<HealthReading>& readings);
    /// What is no reading ends the list.
    static std::vector<HealthReading> fromItems(const QStringList& items);

    bool operator==(const HealthReading&) const = default;
};
