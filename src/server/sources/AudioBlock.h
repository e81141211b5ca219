#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Velmora::Server {

/// All sound inside the instrument is 48 kHz float, full scale = 1.0; samples may exceed full scale.
inline constexpr int kAudioSampleRate = 48000;
inline constexpr std::size_t kAudioChannels = 16;
inline constexpr std::size_t kAudioPairs = kAudioChannels / 2;

/// A view of sound that belongs to somebody else: one plane of @c frames samples per channel, null for a
/// channel that is not present. @c position counts samples since the start of the source and stamps the first
/// frame.
struct AudioBlock {
    std::array<const float*, kAudioChannels> channels{};
    std::size_t frames = 0;
    std::uint64_t position = 0;
};

/// The caller's memory that a source fills: one plane of @c frames samples per channel, null for a channel
/// that the caller does not want.
struct AudioPlanes {
    std::array<float*, kAudioChannels> channels{};
    std::size_t frames = 0;
};

/// Owns planes for all channels, zeroed at first.
class AudioBuffer {
public:
    explicit AudioBuffer(std::size_t frames);

    std::size_t frames() const { return m_frames; }
    /// The @c frames() samples of a channel, 0 to 15.
    float* plane(std::size_t channel) { return m_samples.data() + channel * m_frames; }
    const float* plane(std::size_t channel) const { return m_samples.data() + channel * m_frames; }

    /// All planes, valid as long as the buffer.
    AudioPlanes planes();
    /// The first @p channelCount channels as a block, valid as long as the buffer.
    AudioBlock block(std::uint64_t position = 0, std::size_t channelCount = kAudioChannels) const;

private:
    std::size_t m_frames;
    std::vector<float> m_samples;
};

} // namespace Velmora::Server
