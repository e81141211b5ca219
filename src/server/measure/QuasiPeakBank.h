#pragma once

#include "server/measure/SampleChunk.h"

namespace Velmora::Server {

/// What makes a quasi-peak programme meter: two followers that rise towards a larger rectified sample, each
/// by a fraction of the difference, and that fall together; their scaled sum is the indication.
struct QuasiPeakFigures {
    /// Speed of rise of the two followers, 1/s.
    float slowRise;
    float fastRise;
    /// Speed of return in dB/s.
    float returnDbPerSecond;
    /// Makes a steady sine of 1 kHz read its peak.
    float gain;
};

/// IEC 60268-10 Type I: a burst of 5 ms reads 2 dB below a steady tone; falls by 20 dB in 1.7 s.
extern const QuasiPeakFigures kPpmTypeIFigures;
/// IEC 60268-10 Type II (a and b): a burst of 10 ms reads 2 dB low; falls by 24 dB in 2.8 s.
extern const QuasiPeakFigures kPpmTypeIIFigures;

/// Programme meters for all channels.
///
/// The rectified samples are taken as they are, without oversampling. A steady sine reads within 0.2 dB from
/// 20 Hz to 20 kHz, except near frequencies that are a small integer part of 48 kHz, where the samples may
/// keep missing the crests of the wave: at 8 and 16 kHz a reading can be 1.1 dB low, at 12 kHz 2.9 dB,
/// depending on the phase.
class QuasiPeakBank {
public:
    explicit QuasiPeakBank(const QuasiPeakFigures& figures);

    void advance(const SampleChunk& chunk);
    /// The highest indication of each channel since the last call, as a factor of full scale.
    Lanes takePeaks();
    void clear();
    void clearChannel(std::size_t channel);

private:
    float m_slowStep;
    float m_fastStep;
    float m_groupDecay;
    float m_gain;
    Lanes m_slow;
    Lanes m_fast;
    Lanes m_peak;
};

} // namespace Velmora::Server
