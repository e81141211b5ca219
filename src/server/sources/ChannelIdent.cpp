#include "server/sources/ChannelIdent.h"

#include "server/sources/AudioBlock.h"

namespace Velmora::Server {

namespace {

constexpr std::uint64_t kQuarterSecond = kAudioSampleRate / 4;

bool multichannelIsOn(std::size_t channel, std::uint64_t position)
{
    constexpr std::uint64_t kAllOn = 12; // quarter seconds
    constexpr std::uint64_t kFirstChannel = kAllOn + 2;
    constexpr std::uint64_t kPerChannel = 4;
    const auto quarter = position / kQuarterSecond % (kFirstChannel + kPerChannel * kAudioChannels);
    const auto ownStart = kFirstChannel + kPerChannel * channel;
    return quarter < kAllOn || quarter == ownStart || quarter == ownStart + 1;
}

} // namespace

bool identIsOn(IdentPattern pattern, std::size_t channel, std::uint64_t position)
{
    const auto quarter = position / kQuarterSecond;
    const bool isLeft = channel % 2 == 0;
    switch (pattern) {
    case IdentPattern::None:
        return true;
    case IdentPattern::EbuStereo:
        return !(isLeft && quarter % 12 == 0);
    case IdentPattern::Glits: {
        const auto phase = quarter % 16;
        return isLeft ? phase != 0 : phase != 2 && phase != 4;
    }
    case IdentPattern::EbuMultichannel:
        return multichannelIsOn(channel, position);
    }
    return true;
}

} // namespace Velmora::Server
