#include "media/MediaAudioSource.h"

#include "media/Ffmpeg.h"

#include <algorithm>

namespace Velmora::Media {

using namespace std::chrono;
using Server::AudioBlock;
using Server::AudioPlanes;
using Server::kAudioChannels;
using Server::kAudioSampleRate;

namespace {

constexpr int kLowestRate = 4000;
constexpr int kHighestRate = 768000;
/// Samples of a track that may wait for the other tracks; a track that is behind by more is silent.
constexpr std::int64_t kMostWaiting = 10LL * kAudioSampleRate;
/// Time stamps that are off by less are rounded ones.
constexpr std::int64_t kTolerance = kAudioSampleRate / 25;
/// How far before the place of a seek decoding may have to begin. A larger difference is a mistake in the
/// time stamps.
constexpr std::int64_t kLongestLead = 60LL * kAudioSampleRate;

std::int64_t placeOf(nanoseconds position)
{
    return av_rescale(position.count(), kAudioSampleRate, std::nano::den);
}

} // namespace

MediaAudioSource::MediaAudioSource(std::unique_ptr<MediaReader> reader, const Control& control,
                                   const std::shared_ptr<MediaTiming>& timing)
    : m_reader(std::move(reader))
    , m_control(control)
    , m_timing(timing)
    , m_seeks(control->seekCount())
{
    addTracks();
}

void MediaAudioSource::addTracks()
{
    for (std::size_t i = 0; i < m_reader->streamCount(); ++i) {
        Track& track = m_tracks.emplace_back();
        const int channels = std::max(m_reader->stream(i).codecpar->ch_layout.nb_channels, 0);
        track.firstChannel = m_channels;
        track.waiting.resize(std::min(static_cast<std::size_t>(channels), kAudioChannels - m_channels));
        m_channels += track.waiting.size();
    }
}

AudioBlock MediaAudioSource::read(const AudioPlanes& planes)
{
    followSeek();
    AudioBlock block;
    block.frames = planes.frames;
    block.position = m_position;
    m_position += planes.frames;
    std::size_t done = 0;
    while (done < planes.frames && !m_control->isPaused()) {
        const std::size_t played = playPiece(planes, done);
        if (played == 0)
            break;
        done += played;
    }
    silence(planes, done, planes.frames - done);
    if (!m_hasEnded)
        std::copy_n(planes.channels.begin(), m_channels, block.channels.begin());
    return block;
}

void MediaAudioSource::followSeek()
{
    if (std::exchange(m_seeks, m_control->seekCount()) != m_control->seekCount())
        restartAt(m_control->seekPosition());
}

void MediaAudioSource::resume()
{
    m_seeks = m_control->seekCount();
    restartAt(m_timing->inFile(m_control->position(), m_control->isLooping()));
}

void MediaAudioSource::restartAt(nanoseconds position)
{
    m_reader->seek(position);
    m_place = placeOf(position);
    m_isAtEnd = false;
    m_hasEnded = false;
    for (Track& track : m_tracks) {
        for (auto& samples : track.waiting)
            samples.clear();
        track.end = m_place;
        track.isFresh = true;
        track.resampler.reset();
    }
}

/// Plays on until the planes are full, or the end of the loop or of the file comes. Returns how many samples.
std::size_t MediaAudioSource::playPiece(const AudioPlanes& planes, std::size_t done)
{
    std::size_t wanted = planes.frames - done;
    const std::int64_t loopEnd = m_control->isLooping() ? placeOf(m_timing->loopLength()) : 0;
    if (loopEnd > 0) {
        if (m_place >= loopEnd)
            restartAt(nanoseconds(0));
        wanted = std::min(wanted, static_cast<std::size_t>(loopEnd - m_place));
    }
    fill(wanted);
    std::size_t longest = 0;
    for (const Track& track : m_tracks)
        longest = std::max(longest, track.length());
    if (longest == 0)
        return playEnd(planes, done, loopEnd > 0 ? wanted : 0);
    m_hasEnded = false;
    const std::size_t played = m_isAtEnd ? std::min(wanted, longest) : wanted;
    take(planes, done, played);
    return played;
}

/// What there is to play when nothing is left: in a loop silence until the pictures begin again.
std::size_t MediaAudioSource::playEnd(const AudioPlanes& planes, std::size_t done, std::size_t restOfLoop)
{
    if (restOfLoop > 0) {
        silence(planes, done, restOfLoop);
        m_place += static_cast<std::int64_t>(restOfLoop);
        return restOfLoop;
    }
    // A file that yields nothing is not begun again and again.
    if (m_control->isLooping() && m_place > 0) {
        restartAt(nanoseconds(0));
        return playPiece(planes, done);
    }
    m_hasEnded = true;
    return 0;
}

/// Hands out samples that wait; a track that has too few is silent for the rest.
void MediaAudioSource::take(const AudioPlanes& planes, std::size_t done, std::size_t frames)
{
    silence(planes, done, frames);
    for (Track& track : m_tracks) {
        const std::size_t count = std::min(frames, track.length());
        for (std::size_t i = 0; i < track.waiting.size(); ++i) {
            auto& samples = track.waiting[i];
            if (float* const plane = planes.channels[track.firstChannel + i])
                std::copy_n(samples.begin(), count, plane + done);
            samples.erase(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(count));
        }
        // What was missing is not made up for.
        track.end += static_cast<std::int64_t>(frames - count);
    }
    m_place += static_cast<std::int64_t>(frames);
}

void MediaAudioSource::silence(const AudioPlanes& planes, std::size_t done, std::size_t frames) const
{
    for (std::size_t channel = 0; channel < m_channels; ++channel) {
        if (float* const plane = planes.channels[channel])
            std::fill_n(plane + done, frames, 0.0F);
    }
}

void MediaAudioSource::fill(std::size_t frames)
{
    while (!m_isAtEnd && !hasEnough(frames)) {
        if (const auto decoded = m_reader->next()) {
            decode(*decoded);
            continue;
        }
        m_isAtEnd = true;
        for (Track& track : m_tracks)
            append(track, nullptr);
    }
}

bool MediaAudioSource::hasEnough(std::size_t frames) const
{
    const auto isFull = [](const Track& track) { return track.length() > std::size_t{kMostWaiting}; };
    const auto has = [&](const Track& track) { return track.waiting.empty() || track.length() >= frames; };
    return std::all_of(m_tracks.begin(), m_tracks.end(), has)
        || std::any_of(m_tracks.begin(), m_tracks.end(), isFull);
}

void MediaAudioSource::decode(const MediaReader::Decoded& decoded)
{
    Track& track = m_tracks[decoded.stream];
    const AVFrame& frame = *decoded.frame;
    if (track.waiting.empty() || !prepareResampler(track, frame))
        return;
    const std::int64_t gap = gapBefore(track, decoded);
    const std::int64_t length = av_rescale(frame.nb_samples, kAudioSampleRate, frame.sample_rate);
    if (length > kMostWaiting || gap + length <= 0)
        return;
    if (gap > 0) {
        for (auto& samples : track.waiting)
            samples.insert(samples.end(), static_cast<std::size_t>(gap), 0.0F);
        track.end += gap;
    }
    const std::size_t before = track.length();
    append(track, &frame);
    const std::size_t excess =
        std::min(static_cast<std::size_t>(std::max<std::int64_t>(-gap, 0)), track.length() - before);
    for (auto& samples : track.waiting) {
        const auto from = samples.begin() + static_cast<std::ptrdiff_t>(before);
        samples.erase(from, from + static_cast<std::ptrdiff_t>(excess));
    }
    track.end -= static_cast<std::int64_t>(excess);
    track.isFresh = false;
}

std::int64_t MediaAudioSource::gapBefore(const Track& track, const MediaReader::Decoded& decoded) const
{
    const auto time = m_reader->timeOf(decoded);
    if (!time)
        return 0;
    const std::int64_t gap =
        placeOf(*time) - track.end - swr_get_delay(track.resampler.get(), kAudioSampleRate);
    const bool isRounding = !track.isFresh && std::abs(gap) < kTolerance;
    const bool isMistake = gap > kMostWaiting || gap < -kLongestLead;
    return isRounding || isMistake ? 0 : gap;
}

bool MediaAudioSource::prepareResampler(Track& track, const AVFrame& frame)
{
    const auto channels = static_cast<std::size_t>(std::max(frame.ch_layout.nb_channels, 0));
    if (frame.sample_rate < kLowestRate || frame.sample_rate > kHighestRate || channels == 0)
        return false;
    if (track.resampler && track.resamplerRate == frame.sample_rate && track.resamplerFormat == frame.format
        && track.resamplerChannels == channels)
        return true;
    SwrContext* made = nullptr;
    AVChannelLayout layout = frame.ch_layout; // which is only read
    swr_alloc_set_opts2(&made, &layout, AV_SAMPLE_FMT_FLTP, kAudioSampleRate, &layout,
                        static_cast<AVSampleFormat>(frame.format), frame.sample_rate, 0, nullptr);
    track.resampler.reset(made);
    track.resamplerRate = frame.sample_rate;
    track.resamplerFormat = frame.format;
    track.resamplerChannels = channels;
    if (made && swr_init(made) >= 0)
        return true;
    track.resampler.reset();
    return false;
}

/// Appends what becomes of the frame, or without one what the resampler still holds.
void MediaAudioSource::append(Track& track, const AVFrame* frame)
{
    if (!track.resampler)
        return;
    const int most = swr_get_out_samples(track.resampler.get(), frame ? frame->nb_samples : 0);
    if (most <= 0)
        return;
    const std::size_t before = track.length();
    const std::size_t channels = std::max(track.waiting.size(), track.resamplerChannels);
    std::vector<std::vector<float>> unwanted(channels - track.waiting.size());
    std::vector<std::uint8_t*> planes;
    for (auto& samples : track.waiting)
        samples.resize(before + static_cast<std::size_t>(most));
    for (auto& samples : unwanted)
        samples.resize(before + static_cast<std::size_t>(most));
    for (std::size_t i = 0; i < channels; ++i) {
        auto& samples = i < track.waiting.size() ? track.waiting[i] : unwanted[i - track.waiting.size()];
        planes.push_back(reinterpret_cast<std::uint8_t*>(samples.data() + before));
    }
    const auto** const input = frame ? const_cast<const std::uint8_t**>(frame->extended_data) : nullptr;
    const int made = std::max(
        swr_convert(track.resampler.get(), planes.data(), most, input, frame ? frame->nb_samples : 0), 0);
    for (auto& samples : track.waiting)
        samples.resize(before + static_cast<std::size_t>(made));
    track.end += made;
}

} // namespace Velmora::Media
