#pragma once

#include "server/measure/AudioMeterReading.h"

#include "types/audio/AudioChannelContent.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace Velmora::Server {

/// Finds out what the channels carry from their samples: sound, silence, or data in bursts of SMPTE ST 337,
/// in both channels of a pair (frame mode) or in one (subframe mode).
///
/// Data counts from the second burst of its type on, since sound may look like the beginning of a burst once.
class AudioContentDetector {
public:
    using Content = AudioTypes::AudioChannelContent;

    /// Takes the samples of the block into account; a channel that is null is absent.
    void process(const AudioBlock& block);
    /// What has been found out by now; a first result takes a fifth of a second.
    const std::array<Content, kAudioChannels>& contents() const { return m_contents; }
    /// The time stamp of the last Dolby E burst in a pair's channels; nothing without.
    std::optional<std::uint64_t> dolbyEPosition(std::size_t pair) const;

private:
    /// Words from the start of a burst to the programme configuration of Dolby E, all in one channel.
    static constexpr std::size_t kLookahead = 8;
    static constexpr std::size_t kPieceFrames = 480;
    static constexpr std::size_t kPeriodFrames = 9600;

    /// Where a burst may be: in the frames of a pair, or in one of its channels.
    enum class Mode { Frames, Left, Right };
    struct Burst {
        Content content;
        std::uint64_t position = 0;
        int seen = 0; ///< bursts of the same type one after the other
    };
    /// Samples of one channel as 24-bit numbers: those that were left over, and a piece of the block.
    using Samples = std::array<std::uint32_t, kLookahead + kPieceFrames>;

    void processPiece(const AudioBlock& block, std::size_t first, std::size_t frames);
    void load(std::size_t channel, const float* samples, std::size_t frames);
    void findBursts(std::size_t pair, std::size_t frames);
    void tryBurst(std::size_t pair, Mode mode, std::size_t frame);
    void conclude();
    Content conclusionFor(std::size_t channel) const;

    std::array<Samples, kAudioChannels> m_samples{};
    std::uint64_t m_position = 0; ///< of the first of m_samples
    ChannelSet m_present;
    std::array<std::uint32_t, kAudioChannels> m_usedBits{}; ///< of all samples of the period
    std::size_t m_periodFrames = 0;
    std::array<std::array<std::optional<Burst>, 3>, kAudioPairs> m_bursts; ///< by Mode
    std::array<Content, kAudioChannels> m_contents{};
};

} // namespace Velmora::Server
