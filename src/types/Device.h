#pragma once

#include <QFlags>
#include <QStringList>

namespace Velmora::Wz {

/// The instrument variant: what it is fitted with. Windows and builders are given it, so that they offer only
/// what the variant supports. A value.
class Device {
public:
    enum Feature : unsigned {
        Generator = 1U << 0,
        St2110 = 1U << 1, ///< media over IP
        EyeAndJitter = 1U << 2, ///< physical-layer measurement
        DolbyDecoding = 1U << 3,
    };
    Q_DECLARE_FLAGS(Features, Feature)

    /// A variant with nothing but the SDI analyser, which all have.
    constexpr Device() = default;
    constexpr explicit Device(Features features)
        : m_features(features)
    {
    }
    /// The variant with every feature.
    static constexpr Device full()
    {
        return Device(Features(Generator | St2110 | EyeAndJitter | DolbyDecoding));
    }

    /// As the instrument names them; names of features that nobody here knows are left out.
    QStringList featureNames() const;
    static Device ofFeatureNames(const QStringList& names);

    constexpr Features features() const { return m_features; }
    constexpr bool supports(Features needed) const { return (m_features & needed) == needed; }

    friend constexpr bool operator==(const Device& a, const Device& b)
    {
        return static_cast<Features::Int>(a.m_features) == static_cast<Features::Int>(b.m_features);
    }

private:
    Features m_features;
};

} // namespace Velmora::Wz

Q_DECLARE_OPERATORS_FOR_FLAGS(Velmora::Wz::Device::Features)
