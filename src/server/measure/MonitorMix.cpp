#include "server/measure/MonitorMix.h"

#include <algorithm>

namespace Velmora::Server {

unsigned MonitorMix::channelsOf(std::size_t side) const
{
    if (soloChannel > 0)
        return 1U << (soloChannel - 1);
    if (channels[side] != 0)
        return channels[side];
    return 1U << (2 * (pair - 1) + side);
}

void MonitorMix::mix(const AudioBlock& block, std::vector<float>& stereo) const
{
    stereo.assign(2 * block.frames, 0.0F);
    for (std::size_t side = 0; side < 2; ++side) {
        const unsigned wanted = channelsOf(side);
        std::vector<const float*> planes;
        for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
            if ((wanted >> channel & 1U) != 0 && block.channels[channel])
                planes.push_back(block.channels[channel]);
        }
        const float share = 1.0F / static_cast<float>(std::max<std::size_t>(planes.size(), 1));
        for (const float* const plane : planes) {
            for (std::size_t i = 0; i < block.frames; ++i)
                stereo[2 * i + side] += share * plane[i];
        }
    }
}

} // namespace Velmora::Server
