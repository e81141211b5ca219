#include "server/measure/QuasiPeakBank.h"

#include "server/measure/Levels.h"

#include <utility>

namespace Velmora::Server {

// The rises meet the tables of bursts of IEC 60268-10 (see the tests); the gains belong to 48 kHz.
const QuasiPeakFigures kPpmTypeIFigures{450.0F, 1300.0F, 20.0F / 1.7F, 0.51075F};
const QuasiPeakFigures kPpmTypeIIFigures{200.0F, 860.0F, 24.0F / 2.8F, 0.51398F};

QuasiPeakBank::QuasiPeakBank(const QuasiPeakFigures& figures)
    : m_slowStep(figures.slowRise / kAudioSampleRate)
    , m_fastStep(figures.fastRise / kAudioSampleRate)
    , m_groupDecay(decayPer(SampleChunk::kGroupFrames, figures.returnDbPerSecond))
    , m_gain(figures.gain)
{
}

void QuasiPeakBank::advance(const SampleChunk& chunk)
{
    // Local copies stay in registers; members would be stored at each step.
    Lanes slow = m_slow;
    Lanes fast = m_fast;
    Lanes peak = m_peak;
    const float slowKeep = 1.0F - m_slowStep;
    const float fastKeep = 1.0F - m_fastStep;
    for (std::size_t group = 0; group < SampleChunk::kGroups; ++group) {
        for (std::size_t i = 0; i < SampleChunk::kGroupFrames; ++i) {
            const Lanes& magnitudes = chunk.magnitudes[group * SampleChunk::kGroupFrames + i];
            slow = greater(slow, slow * slowKeep + magnitudes * m_slowStep);
            fast = greater(fast, fast * fastKeep + magnitudes * m_fastStep);
        }
        peak = greater(slow + fast, peak);
        slow *= m_groupDecay;
        fast *= m_groupDecay;
    }
    m_slow = withoutTiny(slow);
    m_fast = withoutTiny(fast);
    m_peak = peak;
}

Lanes QuasiPeakBank::takePeaks()
{
    return std::exchange(m_peak, Lanes()) * m_gain;
}

void QuasiPeakBank::clear()
{
    m_slow = m_fast = m_peak = Lanes();
}

void QuasiPeakBank::clearChannel(std::size_t channel)
{
    m_slow.setChannel(channel, 0.0F);
    m_fast.setChannel(channel, 0.0F);
    m_peak.setChannel(channel, 0.0F);
}

} // namespace Velmora::Server
