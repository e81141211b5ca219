#include "server/measure/VuBank.h"

#include <cmath>
#include <numbers>

namespace Velmora::Server {

const VuFigures kVuFigures{0.81, 13.42};
const VuFigures kVuFrFigures{0.70, 9.975};

VuBank::VuBank(const VuFigures& figures)
{
    constexpr double kStepSeconds = static_cast<double>(SampleChunk::kFrames) / kAudioSampleRate;
    const double rootOfRest = std::sqrt(1.0 - figures.damping * figures.damping);
    const double angle = figures.omega * rootOfRest * kStepSeconds;
    const double shrink = std::exp(-figures.damping * figures.omega * kStepSeconds);
    const double sine = shrink * std::sin(angle) / rootOfRest;
    const double cosine = shrink * std::cos(angle);
    m_placeFromPlace = static_cast<float>(cosine + figures.damping * sine);
    m_placeFromSpeed = static_cast<float>(sine);
    m_speedFromPlace = static_cast<float>(-sine);
    m_speedFromSpeed = static_cast<float>(cosine - figures.damping * sine);
}

void VuBank::advance(const SampleChunk& chunk)
{
    constexpr auto kPeakOfSine = static_cast<float>(std::numbers::pi / 2.0);
    const Lanes rest = chunk.meanMagnitude * kPeakOfSine;
    const Lanes place = m_place - rest;
    m_place = withoutTiny(rest + place * m_placeFromPlace + m_speed * m_placeFromSpeed);
    m_speed = withoutTiny(place * m_speedFromPlace + m_speed * m_speedFromSpeed);
}

void VuBank::clear()
{
    m_place = m_speed = Lanes();
}

void VuBank::clearChannel(std::size_t channel)
{
    m_place.setChannel(channel, 0.0F);
    m_speed.setChannel(channel, 0.0F);
}

} // namespace Velmora::Server
