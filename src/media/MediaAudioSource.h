#pragma once

#include "media/MediaReader.h"
#include "media/MediaTiming.h"
#include "server/sources/AudioSource.h"
#include "server/sources/PlaybackControl.h"

namespace Velmora::Media {

/// The sound of a media file: the channels of all its streams in their order, up to 16, at 48 kHz and in time
/// with the pictures.
///
/// Never ends: behind the end of the file its channels are missing until a seek or the loop leads back.
/// Silent while it is paused.
class MediaAudioSource : public Server::AudioSource {
public:
    using Control = std::shared_ptr<Server::PlaybackControl>;

    MediaAudioSource(std::unique_ptr<MediaReader> reader, const Control& control,
                     const std::shared_ptr<MediaTiming>& timing);

    Server::AudioBlock read(const Server::AudioPlanes& planes) override;
    void resume() override;
    std::uint64_t position() const override { return m_position; }

private:
    /// One stream's share of the channels, and its samples that wait to be read.
    struct Track {
        std::size_t firstChannel = 0;
        std::vector<std::vector<float>> waiting; ///< by channel, all of one length
        std::int64_t end = 0; ///< place in the file behind the last sample that waits
        bool isFresh = true; ///< nothing was decoded since the start or a seek
        MediaHandle<SwrContext> resampler;
        int resamplerRate = 0;
        int resamplerFormat = 0;
        std::size_t resamplerChannels = 0;

        std::size_t length() const { return waiting.empty() ? 0 : waiting.front().size(); }
    };

    void addTracks();
    void followSeek();
    void restartAt(std::chrono::nanoseconds position);
    std::size_t playPiece(const Server::AudioPlanes& planes, std::size_t done);
    std::size_t playEnd(const Server::AudioPlanes& planes, std::size_t done, std::size_t wanted);
    void take(const Server::AudioPlanes& planes, std::size_t done, std::size_t frames);
    void silence(const Server::AudioPlanes& planes, std::size_t done, std::size_t frames) const;

    void fill(std::size_t frames);
    bool hasEnough(std::size_t frames) const;
    void decode(const MediaReader::Decoded& decoded);
    static bool prepareResampler(Track& track, const AVFrame& frame);
    static void append(Track& track, const AVFrame* frame);
    /// How many samples the frame begins behind the end of what waits; negative before it.
    std::int64_t gapBefore(const Track& track, const MediaReader::Decoded& decoded) const;

    std::unique_ptr<MediaReader> m_reader;
    Control m_control;
    std::shared_ptr<MediaTiming> m_timing;
    std::uint32_t m_seeks;
    std::vector<Track> m_tracks; ///< by stream
    std::size_t m_channels = 0; ///< of all tracks
    std::int64_t m_place = 0; ///< in the file, of the sample that will be read next
    bool m_isAtEnd = false; ///< nothing is left to decode
    bool m_hasEnded = false; ///< nothing is left to read either
    std::uint64_t m_position = 0;
};

} // namespace Velmora::Media
