#pragma once

#include "server/measure/SampleChunk.h"

#include <array>
#include <optional>

namespace Velmora::Server {

/// The phase meters of the 8 pairs: the correlation of left and right, <L·R> / sqrt(<L²>·<R²>) of the signals
/// without their direct voltage, averaged exponentially with a time constant of 0.4 s. Two sines of one
/// frequency give the cosine of their phase difference, whatever their levels.
class CorrelationBank {
public:
    void advance(const SampleChunk& chunk);
    /// The correlation of a pair (0 to 7) from -1 to 1, or nothing when one of its channels has less than
    /// -80 dBFS (r.m.s. against full scale 1.0), or less than 50 dB below its own direct voltage.
    std::optional<float> correlation(std::size_t pair) const;
    void clearChannel(std::size_t channel);

private:
    double variance(std::size_t channel) const;

    // Double, since the variance is a small difference when there is a direct voltage.
    std::array<double, kAudioChannels> m_mean{};
    std::array<double, kAudioChannels> m_square{};
    std::array<double, kAudioPairs> m_product{};
};

} // namespace Velmora::Server
