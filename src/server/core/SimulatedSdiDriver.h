#pragma once

#include "types/sdi/DriverCharacteristics.h"

#include <random>

namespace Velmora::Server {

/// An SDI output driver, simulated, for there is no output here: how high its amplitude is with each step of
/// its gain. Each driver is a little different, bends a little, and is read with noise.
class SimulatedSdiDriver {
public:
    /// mV, root mean square.
    static constexpr double kNoise = 1.2;

    /// The same @p seed gives the same driver and the same noise.
    explicit SimulatedSdiDriver(unsigned seed);

    /// mV peak to peak, as one reading gives it.
    double measure(int step);
    /// Without noise.
    double amplitudeAt(int step) const;

private:
    Sdi::DriverCharacteristics m_true;
    double m_ripple = 0; ///< mV; what no parabola is
    std::mt19937 m_random;
    std::normal_distribution<double> m_noise{0, kNoise};
};

} // namespace Velmora::Server
