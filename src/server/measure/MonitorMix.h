#pragma once

#include "server/sources/AudioBlock.h"

#include <array>
#include <vector>

namespace Velmora::Server {

/// What is heard on the two sides of the monitor output. A value.
struct MonitorMix {
    unsigned pair = 1; ///< counts from 1; its channels go to their sides
    unsigned soloChannel = 0; ///< counts from 1; goes alone to both sides. 0 for none
    /// The channels that a side mixes in the place of the pair's own, one bit each; 0 for none.
    std::array<unsigned, 2> channels{};

    /// The frames of the block as left and right after each other, into @p stereo. A mix is the mean of its
    /// channels, so that it never exceeds full scale; absent channels do not take part.
    void mix(const AudioBlock& block, std::vector<float>& stereo) const;

private:
    unsigned channelsOf(std::size_t side) const;
};

} // namespace Velmora::Server
