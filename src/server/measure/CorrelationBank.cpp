#include "server/measure/CorrelationBank.h"

#include <algorithm>
#include <cmath>

namespace Velmora::Server {

namespace {

/// One exponential step: part of the way from the averages to the means of a chunk given by its sums.
template<std::size_t size>
void follow(std::array<double, size>& averages, const std::array<float, kAudioChannels>& sums)
{
    constexpr double kTimeConstant = 0.4;
    constexpr double kStep = SampleChunk::kFrames / (kTimeConstant * kAudioSampleRate);
    constexpr double kTiny = 1.0e-30; // far from the slow denormal numbers
    for (std::size_t i = 0; i < size; ++i) {
        const double average =
            averages[i] * (1.0 - kStep) + static_cast<double>(sums[i]) * (kStep / SampleChunk::kFrames);
        averages[i] = std::abs(average) < kTiny ? 0.0 : average;
    }
}

} // namespace

void CorrelationBank::advance(const SampleChunk& chunk)
{
    Lanes sum;
    Lanes square;
    Lanes product;
    for (const Lanes& samples : chunk.samples) {
        sum += samples;
        square += samples * samples;
        product += samples.pairProducts();
    }
    follow(m_mean, sum.inChannelOrder());
    follow(m_square, square.inChannelOrder());
    follow(m_product, product.inLaneOrder());
}

double CorrelationBank::variance(std::size_t channel) const
{
    constexpr double kFloorPower = 1.0e-8; // -80 dBFS
    constexpr double kFloorOfPower = 1.0e-5; // well above the rounding errors of the sums
    const double variance = m_square[channel] - m_mean[channel] * m_mean[channel];
    return variance > std::max(kFloorPower, kFloorOfPower * m_square[channel]) ? variance : 0.0;
}

std::optional<float> CorrelationBank::correlation(std::size_t pair) const
{
    const auto left = 2 * pair;
    const auto right = left + 1;
    const double power = variance(left) * variance(right);
    if (power <= 0.0)
        return std::nullopt;
    const double covariance = m_product[pair] - m_mean[left] * m_mean[right];
    return static_cast<float>(std::clamp(covariance / std::sqrt(power), -1.0, 1.0));
}

void CorrelationBank::clearChannel(std::size_t channel)
{
    m_mean[channel] = m_square[channel] = m_product[channel / 2] = 0.0;
}

} // namespace Velmora::Server
