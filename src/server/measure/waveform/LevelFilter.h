#pragma once

#include "types/waveform/WaveformTypes.h"

#include <cstdint>

namespace Velmora::Server {

/// The horizontal filters of the waveform: symmetric FIRs with a sum of exactly 1, so that flat parts keep
/// their code. fs is the sampling rate of the component, 74.25 MHz for the luma of 1080i and 13.5 MHz in
/// standard definition.
///
/// | filter     | taps | response               | -3 dB    | at fs/4  | on a step                       |
/// |------------|------|------------------------|----------|----------|---------------------------------|
/// | Technical  | 9    | 1 - sin^8(pi f/fs)     | 0.328 fs | -0.6 dB  | 8.2 % of overshoot on each side |
/// | Production | 3    | cos^2(pi f/fs)         | 0.182 fs | -6.0 dB  | none                            |
/// | Low Pass   | 11   | mean of 4, mean of 8   | 0.050 fs | zero     | none                            |
/// | Raw        | 1    | 1                      | -        | 0 dB     | none                            |
///
/// Technical is flat as far as nine taps reach and silent at fs/2, so it shows the ringing that a
/// reconstruction filter would make of edges that are too steep. Production shows levels without any
/// overshoot. Low Pass leaves 3.7 MHz of luma at 74.25 MHz and damps 15 MHz by 26 dB.
class LevelFilter {
public:
    explicit LevelFilter(WaveformTypes::Filter filter)
        : m_filter(filter)
    {
    }

    bool isFlat() const { return m_filter == WaveformTypes::Filter::Raw; }
    /// How many samples it looks at on either side.
    int margin() const;
    /// Makes @p count samples of as many and margin() more at either end.
    void apply(const std::int16_t* in, std::int16_t* out, int count) const;

private:
    WaveformTypes::Filter m_filter;
};

} // namespace Velmora::Server
