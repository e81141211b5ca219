#include "server/core/SimulatedSdiDriver.h"

#include <cmath>

namespace Velmora::Server {

namespace {

constexpr double kRippleSteps = 4.7; ///< between its waves

} // namespace

SimulatedSdiDriver::SimulatedSdiDriver(unsigned seed)
    : m_random(seed)
{
    const auto between = [this](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    };
    m_true = {between(540, 580), between(8.0, 9.2), between(-0.035, -0.02), 0};
    m_ripple = between(0.5, 2.0);
}

double SimulatedSdiDriver::amplitudeAt(int step) const
{
    return m_true.amplitudeAt(step) + m_ripple * std::sin(step / kRippleSteps);
}

double SimulatedSdiDriver::measure(int step)
{
    return amplitudeAt(step) + m_noise(m_random);
}

} // namespace Velmora::Server
