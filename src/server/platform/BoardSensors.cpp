#include "server/platform/BoardSensors.h"

#include "logging/Logging.h"

#include <sensors/error.h>
#include <sensors/sensors.h>

#include <cmath>
#include <cstdlib>
#include <optional>

namespace Velmora::Server {

namespace {

constexpr double kTurnsStep = 10;

std::optional<double> valueOf(const sensors_chip_name& chip, const sensors_feature& feature,
                              sensors_subfeature_type type)
{
    const sensors_subfeature* const part = sensors_get_subfeature(&chip, &feature, type);
    double value = 0;
    if (!part || sensors_get_value(&chip, part->number, &value) < 0 || !std::isfinite(value))
        return {};
    return value;
}

QString labelOf(const sensors_chip_name& chip, const sensors_feature& feature)
{
    char* const label = sensors_get_label(&chip, &feature);
    const QString name = QString::fromUtf8(label ? label : feature.name);
    std::free(label);
    return name;
}

std::optional<HealthReading> readFeature(const sensors_chip_name& chip, const sensors_feature& feature)
{
    if (feature.type == SENSORS_FEATURE_TEMP) {
        const auto value = valueOf(chip, feature, SENSORS_SUBFEATURE_TEMP_INPUT);
        auto limit = valueOf(chip, feature, SENSORS_SUBFEATURE_TEMP_MAX);
        if (!limit)
            limit = valueOf(chip, feature, SENSORS_SUBFEATURE_TEMP_CRIT);
        if (value)
            return HealthReading{labelOf(chip, feature), QStringLiteral("\u00B0C"), std::round(*value),
                                 limit.value_or(0)};
    } else if (feature.type == SENSORS_FEATURE_FAN) {
        if (const auto value = valueOf(chip, feature, SENSORS_SUBFEATURE_FAN_INPUT))
            return HealthReading{labelOf(chip, feature), QStringLiteral("rpm"),
                                 std::round(*value / kTurnsStep) * kTurnsStep, 0};
    }
    return {};
}

} // namespace

BoardSensors::BoardSensors()
{
    const int error = sensors_init(nullptr);
    m_isOpen = error == 0;
    if (!m_isOpen)
        log()->warn("The sensors of the machine cannot be read: {}", sensors_strerror(error));
}

BoardSensors::~BoardSensors()
{
    if (m_isOpen)
        sensors_cleanup();
}

std::vector<HealthReading> BoardSensors::read() const
{
    std::vector<HealthReading> readings;
    if (!m_isOpen)
        return readings;
    int chipIndex = 0;
    while (const sensors_chip_name* const chip = sensors_get_detected_chips(nullptr, &chipIndex)) {
        int featureIndex = 0;
        while (const sensors_feature* const feature = sensors_get_features(chip, &featureIndex)) {
            if (auto reading = readFeature(*chip, *feature))
                readings.push_back(*std::move(reading));
        }
    }
    return readings;
}

} // namespace Velmora::Server
