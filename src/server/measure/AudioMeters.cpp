#include "server/measure/AudioMeters.h"

#include "server/measure/Levels.h"

#include <algorithm>

namespace Velmora::Server {

namespace {

ChannelValues levelsDb(const Lanes& lanes)
{
    ChannelValues values = lanes.inChannelOrder();
    for (float& value : values)
        value = levelDb(value);
    return values;
}

/// The next chunk in a block, with silence for absent channels.
std::array<const float*, kAudioChannels> chunkPlanes(const AudioBlock& block, std::size_t first)
{
    static constexpr std::array<float, SampleChunk::kFrames> kSilence{};
    std::array<const float*, kAudioChannels> planes;
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        planes[channel] = block.channels[channel] ? block.channels[channel] + first : kSilence.data();
    return planes;
}

template<typename Staging>
std::array<const float*, kAudioChannels> planesOf(const Staging& staging)
{
    std::array<const float*, kAudioChannels> planes;
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        planes[channel] = staging[channel].data();
    return planes;
}

} // namespace

AudioMeters::AudioMeters(Banks banks)
    : m_banks(banks)
    , m_ppmTypeI(kPpmTypeIFigures)
    , m_ppmTypeII(kPpmTypeIIFigures)
    , m_vu(kVuFigures)
    , m_vuFr(kVuFrFigures)
{
    static_assert(kFramesPerReading % SampleChunk::kFrames == 0);
}

void AudioMeters::setBallistics(Ballistics ballistics)
{
    if (ballistics == m_selected || static_cast<std::size_t>(ballistics) >= kBallisticsCount)
        return;
    m_selected = ballistics;
    m_peakHold.clear();
    if (m_banks == Banks::All)
        return;
    // What has not run still shows an old signal. The sample peak always runs.
    m_ppmTypeI.clear();
    m_ppmTypeII.clear();
    m_vu.clear();
    m_vuFr.clear();
}

void AudioMeters::reset()
{
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel)
        clearChannel(channel);
    m_stagedFrames = 0;
    m_periodFrames = 0;
}

void AudioMeters::process(const AudioBlock& block, const Sink& sink)
{
    notePresence(block);
    for (std::size_t done = 0; done < block.frames;) {
        if (m_stagedFrames == 0 && block.frames - done >= SampleChunk::kFrames) {
            advance(chunkPlanes(block, done));
            done += SampleChunk::kFrames;
        } else {
            done += stage(block, done);
            if (m_stagedFrames < SampleChunk::kFrames)
                return;
            advance(planesOf(m_staging));
            m_stagedFrames = 0;
        }
        m_periodFrames += SampleChunk::kFrames;
        if (m_periodFrames == kFramesPerReading) {
            m_periodFrames = 0;
            sink(takeReading(block.position + done));
        }
    }
}

void AudioMeters::notePresence(const AudioBlock& block)
{
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        const bool isPresent = block.channels[channel] != nullptr;
        if (m_present[channel] && !isPresent)
            clearChannel(channel);
        m_present[channel] = isPresent;
    }
}

void AudioMeters::clearChannel(std::size_t channel)
{
    m_staging[channel].fill(0.0F);
    m_ppmTypeI.clearChannel(channel);
    m_ppmTypeII.clearChannel(channel);
    m_vu.clearChannel(channel);
    m_vuFr.clearChannel(channel);
    m_samplePeak.clearChannel(channel);
    m_correlation.clearChannel(channel);
    m_peakHold.clearChannel(channel);
}

std::size_t AudioMeters::stage(const AudioBlock& block, std::size_t first)
{
    const auto frames = std::min(SampleChunk::kFrames - m_stagedFrames, block.frames - first);
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        // The place of an absent channel was zeroed by clearChannel(), and nobody else writes to it.
        if (const float* const plane = block.channels[channel])
            std::copy_n(plane + first, frames, m_staging[channel].data() + m_stagedFrames);
    }
    m_stagedFrames += frames;
    return frames;
}

void AudioMeters::advance(const std::array<const float*, kAudioChannels>& planes)
{
    m_chunk.load(planes);
    m_samplePeak.advance(m_chunk);
    m_correlation.advance(m_chunk);
    if (runs(Ballistics::PpmTypeI))
        m_ppmTypeI.advance(m_chunk);
    if (runs(Ballistics::PpmTypeII))
        m_ppmTypeII.advance(m_chunk);
    if (runs(Ballistics::Vu))
        m_vu.advance(m_chunk);
    if (runs(Ballistics::VuFr))
        m_vuFr.advance(m_chunk);
}

AudioMeterReading AudioMeters::takeReading(std::uint64_t position)
{
    AudioMeterReading reading;
    reading.position = position;
    reading.present = m_present;
    reading.selected = m_selected;

    const auto peaks = m_samplePeak.takePeaks();
    reading.instantPeakLinear = peaks.instant.inChannelOrder();
    reading.instantPeakDb = levelsDb(peaks.instant);

    const auto setLevels = [&](Ballistics ballistics, const auto& takeLanes) {
        auto& levels = reading.levelsDb[static_cast<std::size_t>(ballistics)];
        if (runs(ballistics))
            levels = levelsDb(takeLanes());
        else
            levels.fill(kMeterFloorDb);
    };
    setLevels(Ballistics::PpmTypeI, [&] { return m_ppmTypeI.takePeaks(); });
    setLevels(Ballistics::PpmTypeII, [&] { return m_ppmTypeII.takePeaks(); });
    setLevels(Ballistics::Vu, [&] { return m_vu.pointers(); });
    setLevels(Ballistics::VuFr, [&] { return m_vuFr.pointers(); });
    setLevels(Ballistics::Fast, [&] { return peaks.fast; });
    reading.peakHoldDb = m_peakHold.update(reading.levelDb(), kFramesPerReading);

    for (std::size_t pair = 0; pair < kAudioPairs; ++pair) {
        const auto correlation = m_correlation.correlation(pair);
        reading.phase[pair] = correlation.value_or(0.0F);
        reading.phaseValid[pair] = correlation.has_value();
    }
    return reading;
}

} // namespace Velmora::Server
