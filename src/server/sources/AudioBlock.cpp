#include "server/sources/AudioBlock.h"

#include <algorithm>

namespace Velmora::Server {

AudioBuffer::AudioBuffer(std::size_t frames)
    : m_frames(frames)
    , m_samples(frames * kAudioChannels)
{
}

AudioPlanes AudioBuffer::planes()
{
    AudioPlanes planes;
    planes.frames = m_frames;
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        planes.channels[channel] = plane(channel);
    return planes;
}

AudioBlock AudioBuffer::block(std::uint64_t position, std::size_t channelCount) const
{
    AudioBlock block;
    block.frames = m_frames;
    block.position = position;
    for (std::size_t channel = 0; channel < std::min(channelCount, kAudioChannels); ++channel)
        block.channels[channel] = plane(channel);
    return block;
}

} // namespace Velmora::Server
