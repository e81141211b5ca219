#include "instruments/audiometering/MonitorChoice.h"

namespace {

constexpr quint32 bitOf(quint32 channel)
{
    return channel < 32 ? 1U << channel : 0U;
}

} // namespace

bool MonitorChoice::isMixed(quint32 channel, std::size_t output) const
{
    return (mix[output] & bitOf(channel)) != 0;
}

bool MonitorChoice::isHeard(quint32 channel) const
{
    if (isMuted)
        return false;
    if (soloChannel > 0)
        return channel + 1 == soloChannel;
    const bool isOfPair = mix[channel % 2] == 0 && channel / 2 + 1 == pair;
    return isOfPair || isMixed(channel, 0) || isMixed(channel, 1);
}

quint32 MonitorChoice::withMixed(quint32 channel, std::size_t output, bool mixed) const
{
    return mixed ? mix[output] | bitOf(channel) : mix[output] & ~bitOf(channel);
}
