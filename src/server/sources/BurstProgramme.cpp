#include "server/sources/BurstProgramme.h"

#include "server/sources/AudioBlock.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace Velmora::Server {

namespace {

constexpr double kLongestSeconds = 24.0 * 3600.0;

/// The number of samples at 0 <= t < seconds. The small part keeps 0.01 s at 480 samples whatever its binary
/// form.
std::uint64_t framesIn(double seconds)
{
    if (!(seconds > 0.0))
        return 0;
    return static_cast<std::uint64_t>(
        std::ceil(std::min(seconds, kLongestSeconds) * kAudioSampleRate - 1e-6));
}

std::initializer_list<double> standardLengths(BurstProgramme programme)
{
    static constexpr std::initializer_list<double> kTypeI{1.0, 0.010, 0.005, 0.003, 0.0004};
    static constexpr std::initializer_list<double> kTypeII{1.0, 0.100, 0.010, 0.005, 0.0015, 0.0005};
    return programme == BurstProgramme::TypeI ? kTypeI : kTypeII;
}

} // namespace

BurstTimer::BurstTimer(BurstProgramme programme, double seconds, double periodSeconds)
{
    if (programme == BurstProgramme::Single) {
        m_lengths[m_count++] = framesIn(seconds);
        m_slotFrames = std::max<std::uint64_t>(framesIn(periodSeconds), 1);
        return;
    }
    for (const double length : standardLengths(programme))
        m_lengths[m_count++] = framesIn(length);
    m_slotFrames = framesIn(kSlotSeconds);
}

BurstTimer::Moment BurstTimer::at(std::uint64_t frame) const
{
    const auto sinceStart = frame % m_slotFrames;
    return {sinceStart < m_lengths[frame / m_slotFrames % m_count], sinceStart};
}

} // namespace Velmora::Server
