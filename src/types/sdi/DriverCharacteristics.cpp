#include "types/sdi/DriverCharacteristics.h"

#include <cmath>

namespace Velmora::Sdi {

int DriverCharacteristics::stepFor(double amplitude) const
{
    int best = 0;
    for (int step = 1; step < kGainSteps; ++step) {
        if (std::abs(amplitudeAt(step) - amplitude) < std::abs(amplitudeAt(best) - amplitude))
            best = step;
    }
    return best;
}

QStringList DriverCharacteristics::toItems() const
{
    constexpr int kDigits = 9;
    QStringList items;
    for (const double value : {offset, slope, curvature, residual})
        items << QString::number(value, 'g', kDigits);
    return items;
}

std::optional<DriverCharacteristics> DriverCharacteristics::fromItems(const QStringList& items)
{
    DriverCharacteristics result;
    double* const fields[] = {&result.offset, &result.slope, &result.curvature, &result.residual};
    if (items.size() != static_cast<int>(std::size(fields)))
        return std::nullopt;
    for (int i = 0; i < items.size(); ++i) {
        bool ok = false;
        *fields[i] = items.at(i).toDouble(&ok);
        if (!ok || !std::isfinite(*fields[i]))
            return std::nullopt;
    }
    return result;
}

} // namespace Velmora::Sdi
