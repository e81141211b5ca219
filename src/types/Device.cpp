#include "types/Device.h"

#include <array>

namespace Velmora::Wz {

namespace {

struct NamedFeature {
    Device::Feature feature;
    const char* name;
};

constexpr std::array kFeatures{
    NamedFeature{Device::Generator, "Generator"},
    NamedFeature{Device::St2110, "ST 2110"},
    NamedFeature{Device::EyeAndJitter, "Eye and jitter"},
    NamedFeature{Device::DolbyDecoding, "Dolby decoding"},
};

} // namespace

QStringList Device::featureNames() const
{
    QStringList names;
    for (const NamedFeature& each : kFeatures) {
        if (supports(each.feature))
            names << QString::fromLatin1(each.name);
    }
    return names;
}

Device Device::ofFeatureNames(const QStringList& names)
{
    Features features;
    for (const NamedFeature& each : kFeatures)
        features.setFlag(each.feature, names.contains(QLatin1String(each.name)));
    return Device(features);
}

} // namespace Velmora::Wz
