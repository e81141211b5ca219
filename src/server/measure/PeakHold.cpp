#include "server/measure/PeakHold.h"

#include <cmath>

namespace Velmora::Server {

void PeakHold::setHoldSeconds(double seconds)
{
    if (!std::isnan(seconds))
        m_holdSeconds = seconds;
}

const ChannelValues& PeakHold::update(const ChannelValues& levelsDb, std::size_t frames)
{
    const double holdFrames = m_holdSeconds * kAudioSampleRate;
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        m_age[channel] += frames;
        const bool isOver = m_holdSeconds >= 0.0 && static_cast<double>(m_age[channel]) > holdFrames;
        if (levelsDb[channel] >= m_heldDb[channel] || isOver) {
            m_heldDb[channel] = levelsDb[channel];
            m_age[channel] = 0;
        }
    }
    return m_heldDb;
}

void PeakHold::clear()
{
    m_heldDb = cleared();
    m_age.fill(0);
}

void PeakHold::clearChannel(std::size_t channel)
{
    m_heldDb[channel] = kMeterFloorDb;
    m_age[channel] = 0;
}

ChannelValues PeakHold::cleared()
{
    ChannelValues values;
    values.fill(kMeterFloorDb);
    return values;
}

} // namespace Velmora::Server
