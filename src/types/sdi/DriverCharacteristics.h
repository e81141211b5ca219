#pragma once

#include <QStringList>

#include <optional>

namespace Velmora::Sdi {

/// How the amplitude of an SDI output driver follows the step of its gain: a parabola, which is what a
/// calibration finds.
struct DriverCharacteristics {
    /// Steps of the gain, from 0.
    static constexpr int kGainSteps = 64;
    /// What SMPTE ST 259, 292 and 424 ask for: 800 mV peak to peak, within 10 %.
    static constexpr int kNominalAmplitude = 800;
    static constexpr int kTolerance = 80;

    double offset = 0; ///< mV with step 0
    double slope = 0; ///< mV a step
    double curvature = 0; ///< mV a step, squared
    double residual = 0; ///< mV, root mean square of what the parabola leaves

    bool operator==(const DriverCharacteristics&) const = default;

    double amplitudeAt(int step) const { return offset + (slope + curvature * step) * step; }
    /// The step whose amplitude comes nearest.
    int stepFor(double amplitude) const;

    QStringList toItems() const;
    /// Nothing when these are no four numbers.
    static std::optional<DriverCharacteristics> fromItems(const QStringList& items);
};

} // namespace Velmora::Sdi
