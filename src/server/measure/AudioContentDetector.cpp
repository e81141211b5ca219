#include "server/measure/AudioContentDetector.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace Velmora::Server {

namespace {

using AudioTypes::AudioChannelContent;
using AudioTypes::AudioDataType;

/// Longer than the repetition period of any data type (E-AC-3: 6144 samples), and than two periods of most.
constexpr std::uint64_t kLongestPause = 9600;
constexpr int kContainerBits = 24;

/// The sync words Pa and Pb of SMPTE ST 337, left-justified in 24 bits, for words of 16, 20 and 24 bits.
struct SyncWords {
    int wordLength;
    std::uint32_t a;
    std::uint32_t b;
};
constexpr std::array<SyncWords, 3> kSyncWords{{
    {16, 0xF87200, 0x4E1F00},
    {20, 0x6F8720, 0x54E1F0},
    {24, 0x96F872, 0xA54E1F},
}};

std::uint32_t toBits(float sample)
{
    constexpr float kScale = 1U << (kContainerBits - 1);
    // What is no number becomes silence.
    const float limited = sample >= -1.0F ? std::min(sample, 1.0F) : sample < -1.0F ? -1.0F : 0.0F;
    return static_cast<std::uint32_t>(std::lrint(limited * kScale)) & 0xFFFFFFU;
}

bool mayBegin(std::uint32_t word)
{
    return word == kSyncWords[0].a || word == kSyncWords[1].a || word == kSyncWords[2].a;
}

int wordLengthOf(std::uint32_t usedBits)
{
    const int bits = kContainerBits - std::countr_zero(usedBits);
    return bits <= 16 ? 16 : bits <= 20 ? 20 : 24;
}

/// The programme configuration of a Dolby E frame, as public decoders read it: the six bits behind the first
/// fourteen of the metadata, which follow the sync word and, in frames that have one, the key to them.
template<typename WordAt>
int programConfigOf(WordAt&& wordAt, int wordLength)
{
    const auto word = [&](std::size_t index) { return wordAt(index) >> (kContainerBits - wordLength); };
    const std::uint32_t sync = wordLength == 16 ? 0x078E : wordLength == 20 ? 0x0788E : 0x07888E;
    constexpr std::size_t kPayload = 4;
    if ((word(kPayload) & ~1U) != sync)
        return -1;
    const bool hasKey = (word(kPayload) & 1U) != 0;
    const std::uint32_t key = hasKey ? word(kPayload + 1) : 0;
    const std::size_t first = kPayload + (hasKey ? 2 : 1);
    const std::uint32_t begin = word(first) ^ key;
    if (wordLength == 16)
        return static_cast<int>((begin & 3U) << 4U | (word(first + 1) ^ key) >> 12U);
    return static_cast<int>(begin >> static_cast<unsigned>(wordLength - 20) & 0x3FU);
}

} // namespace

void AudioContentDetector::process(const AudioBlock& block)
{
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        m_present[channel] = block.channels[channel] != nullptr;
    for (std::size_t done = 0; done < block.frames;) {
        const std::size_t frames = std::min(kPieceFrames, block.frames - done);
        processPiece(block, done, frames);
        done += frames;
        m_periodFrames += frames;
        if (m_periodFrames >= kPeriodFrames)
            conclude();
    }
}

void AudioContentDetector::processPiece(const AudioBlock& block, std::size_t first, std::size_t frames)
{
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        if (m_present[channel])
            load(channel, block.channels[channel] + first, frames);
        else
            m_samples[channel].fill(0);
    }
    m_position = block.position + first - kLookahead;
    for (std::size_t pair = 0; pair < kAudioPairs; ++pair) {
        if (m_present[2 * pair] || m_present[2 * pair + 1])
            findBursts(pair, frames);
    }
    for (Samples& samples : m_samples)
        std::copy_n(samples.begin() + static_cast<std::ptrdiff_t>(frames), kLookahead, samples.begin());
}

void AudioContentDetector::load(std::size_t channel, const float* samples, std::size_t frames)
{
    std::uint32_t used = 0;
    std::uint32_t* const to = m_samples[channel].data() + kLookahead;
    for (std::size_t i = 0; i < frames; ++i) {
        to[i] = toBits(samples[i]);
        used |= to[i];
    }
    m_usedBits[channel] |= used;
}

void AudioContentDetector::findBursts(std::size_t pair, std::size_t frames)
{
    const Samples& left = m_samples[2 * pair];
    const Samples& right = m_samples[2 * pair + 1];
    for (std::size_t frame = 0; frame < frames; ++frame) {
        if (mayBegin(left[frame])) {
            tryBurst(pair, Mode::Frames, frame);
            tryBurst(pair, Mode::Left, frame);
        }
        if (mayBegin(right[frame]))
            tryBurst(pair, Mode::Right, frame);
    }
}

void AudioContentDetector::tryBurst(std::size_t pair, Mode mode, std::size_t frame)
{
    const auto wordAt = [&](std::size_t index) {
        if (mode == Mode::Frames)
            return m_samples[2 * pair + index % 2][frame + index / 2];
        return m_samples[2 * pair + (mode == Mode::Right ? 1 : 0)][frame + index];
    };
    const auto sync = std::find_if(kSyncWords.begin(), kSyncWords.end(), [&](const SyncWords& words) {
        return wordAt(0) == words.a && wordAt(1) == words.b;
    });
    if (sync == kSyncWords.end())
        return;
    // Pc is left-justified as well: the data type are the lowest of its 16 bits.
    const std::uint32_t information = wordAt(2) >> (kContainerBits - 16);
    Content content{static_cast<AudioDataType>(information & 0x1FU), sync->wordLength, -1};
    if (content.type == AudioDataType::DolbyE)
        content.programConfig = programConfigOf(wordAt, sync->wordLength);
    auto& burst = m_bursts[pair][static_cast<std::size_t>(mode)];
    const bool isAnother = !burst || burst->content.type != content.type;
    burst = Burst{content, m_position + frame, isAnother ? 1 : burst->seen + 1};
}

void AudioContentDetector::conclude()
{
    m_periodFrames = 0;
    for (auto& modes : m_bursts) {
        for (auto& burst : modes) {
            // Also after a jump backwards, when the source began anew.
            if (burst && m_position - burst->position > kLongestPause)
                burst.reset();
        }
    }
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        m_contents[channel] = conclusionFor(channel);
    m_usedBits.fill(0);
}

AudioContentDetector::Content AudioContentDetector::conclusionFor(std::size_t channel) const
{
    if (!m_present[channel])
        return {AudioDataType::Absent};
    const auto& bursts = m_bursts[channel / 2];
    for (const Mode mode : {Mode::Frames, channel % 2 == 0 ? Mode::Left : Mode::Right}) {
        const auto& burst = bursts[static_cast<std::size_t>(mode)];
        if (burst && burst->seen > 1)
            return burst->content;
    }
    if (m_usedBits[channel] == 0)
        return {AudioDataType::Silence};
    return {AudioDataType::Pcm, wordLengthOf(m_usedBits[channel])};
}

std::optional<std::uint64_t> AudioContentDetector::dolbyEPosition(std::size_t pair) const
{
    for (const auto& burst : m_bursts[pair]) {
        if (burst && burst->seen > 1 && burst->content.type == AudioDataType::DolbyE)
            return burst->position;
    }
    return std::nullopt;
}

} // namespace Velmora::Server
