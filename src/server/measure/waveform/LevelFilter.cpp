#include "server/measure/waveform/LevelFilter.h"

#include <algorithm>
#include <array>

namespace Velmora::Server {

namespace {

using WaveformTypes::Filter;

// One minus the eighth difference: maximally flat, and nothing is left at half of the sampling rate.
constexpr std::array<int, 9> kTechnical{-1, 8, -28, 56, 186, 56, -28, 8, -1};
constexpr int kTechnicalShift = 8;
constexpr std::array<int, 3> kProduction{1, 2, 1};
constexpr int kProductionShift = 2;
constexpr std::array<int, 11> kLowPass{1, 2, 3, 4, 4, 4, 4, 4, 3, 2, 1};
constexpr int kLowPassShift = 5;

/// The two samples at the same distance share a tap. Their sum stays within 16 bits, which is what vectors of
/// small integers multiply fastest: levels are of 12 bits and what a matrix adds.
template<const auto& Taps, int Shift>
void convolve(const std::int16_t* in, std::int16_t* out, int count)
{
    constexpr std::size_t kMiddle = Taps.size() / 2;
    for (int i = 0; i < count; ++i) {
        const std::int16_t* const first = in + i;
        int sum = (1 << (Shift - 1)) + static_cast<std::int16_t>(Taps[kMiddle]) * first[kMiddle];
        for (std::size_t tap = 0; tap < kMiddle; ++tap) {
            const auto pair = static_cast<std::int16_t>(first[tap] + first[2 * kMiddle - tap]);
            sum += static_cast<std::int16_t>(Taps[tap]) * pair;
        }
        out[i] = static_cast<std::int16_t>(sum >> Shift);
    }
}

} // namespace

int LevelFilter::margin() const
{
    switch (m_filter) {
    case Filter::Technical:
        return kTechnical.size() / 2;
    case Filter::Production:
        return kProduction.size() / 2;
    case Filter::LowPass:
        return kLowPass.size() / 2;
    case Filter::Raw:
        break;
    }
    return 0;
}

void LevelFilter::apply(const std::int16_t* in, std::int16_t* out, int count) const
{
    switch (m_filter) {
    case Filter::Technical:
        return convolve<kTechnical, kTechnicalShift>(in, out, count);
    case Filter::Production:
        return convolve<kProduction, kProductionShift>(in, out, count);
    case Filter::LowPass:
        return convolve<kLowPass, kLowPassShift>(in, out, count);
    case Filter::Raw:
        std::copy_n(in, count, out);
    }
}

} // namespace Velmora::Server
