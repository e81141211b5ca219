#include "server/measure/SamplePeakBank.h"

#include "server/measure/Levels.h"

#include <utility>

namespace Velmora::Server {

namespace {
constexpr float kReturnDbPerSecond = 20.0F / 1.7F;
}

SamplePeakBank::SamplePeakBank()
    : m_groupDecay(decayPer(SampleChunk::kGroupFrames, kReturnDbPerSecond))
{
}

void SamplePeakBank::advance(const SampleChunk& chunk)
{
    for (const Lanes& peaks : chunk.groupPeaks) {
        m_instant = greater(m_instant, peaks);
        m_fast = greater(m_fast * m_groupDecay, peaks);
        m_fastPeak = greater(m_fastPeak, m_fast);
    }
    m_fast = withoutTiny(m_fast);
}

SamplePeakBank::Peaks SamplePeakBank::takePeaks()
{
    return {std::exchange(m_fastPeak, Lanes()), std::exchange(m_instant, Lanes())};
}

void SamplePeakBank::clearChannel(std::size_t channel)
{
    m_fast.setChannel(channel, 0.0F);
    m_fastPeak.setChannel(channel, 0.0F);
    m_instant.setChannel(channel, 0.0F);
}

} // namespace Velmora::Server
