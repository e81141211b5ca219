#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Velmora::Server {

/// Pink noise at 48 kHz: the power falls by 3 dB per octave from 20 Hz to 20 kHz within 0.2 dB and is flat
/// below 5 Hz.
///
/// The same seed always gives the same noise; different seeds give independent noise. Its r.m.s. value is
/// that of a sine of peak 1.0, so that a level in dBFS means the same r.m.s. for both (AES17). Peaks lie
/// about 10 dB above those of such a sine.
class PinkNoise {
public:
    explicit PinkNoise(std::uint64_t seed);

    double next();

    /// First-order sections of its filter.
    static constexpr std::size_t kSections = 7;

private:
    std::uint64_t m_counter;
    std::array<double, kSections> m_state{};
};

} // namespace Velmora::Server
