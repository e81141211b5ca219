#include "server/sources/PinkNoise.h"

#include "server/sources/AudioBlock.h"

#include <cmath>
#include <numbers>

namespace Velmora::Server {

namespace {

/// A fall of 3 dB per octave is half that of one pole. Poles two octaves apart with a zero in the middle of
/// each gap come within 0.1 dB of it, but sag too little near half the sampling rate, where every filter's
/// slope ends: the last zero, fitted on the other side of the origin, keeps the error below 0.2 dB up to 20
/// kHz.
struct PinkFilter {
    std::array<double, PinkNoise::kSections> poles;
    std::array<double, PinkNoise::kSections> zeros;
    double gain = 1.0;

    PinkFilter()
    {
        const auto onRealAxis = [](double hz) {
            return std::exp(-2.0 * std::numbers::pi * hz / kAudioSampleRate);
        };
        double hz = 5.0;
        for (std::size_t i = 0; i < PinkNoise::kSections; ++i, hz *= 4.0) {
            poles[i] = onRealAxis(hz);
            zeros[i] = onRealAxis(2.0 * hz);
        }
        zeros.back() = kFittedZero;
        gain = std::sqrt(kSinePower / (kWhitePower * impulsePower()));
    }

    double filter(double x, std::array<double, PinkNoise::kSections>& state) const
    {
        for (std::size_t i = 0; i < PinkNoise::kSections; ++i) {
            const double w = x + poles[i] * state[i];
            x = w - zeros[i] * state[i];
            state[i] = w;
        }
        return x;
    }

private:
    static constexpr double kFittedZero = -0.065;
    static constexpr double kSinePower = 0.5;
    static constexpr double kWhitePower = 1.0 / 3.0; // uniform from -1 to 1

    /// What the filter makes of the power of white noise: the sum of its squared impulse response.
    double impulsePower() const
    {
        std::array<double, PinkNoise::kSections> state{};
        double power = 0.0;
        for (int i = 0; i < kAudioSampleRate; ++i) { // the slowest pole has a time constant of 1528 samples
            const double y = filter(i == 0 ? 1.0 : 0.0, state);
            power += y * y;
        }
        return power;
    }
};

const PinkFilter& pinkFilter()
{
    static const PinkFilter filter;
    return filter;
}

/// SplitMix64's output function: a bijective hash of a counter that passes the usual randomness test suites.
std::uint64_t mixed(std::uint64_t value)
{
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31);
}

} // namespace

PinkNoise::PinkNoise(std::uint64_t seed)
    // Hashed twice, so that neighbouring seeds start at places far apart on the one cycle of the counter.
    : m_counter(mixed(mixed(seed) + 0x632BE59BD9B4E019U))
{
}

double PinkNoise::next()
{
    m_counter += 0x9E3779B97F4A7C15U; // 2^64 / golden ratio, odd
    const double white = std::ldexp(static_cast<double>(static_cast<std::int64_t>(mixed(m_counter))), -63);
    const auto& filter = pinkFilter();
    return filter.gain * filter.filter(white, m_state);
}

} // namespace Velmora::Server
