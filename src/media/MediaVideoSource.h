#pragma once

#include "media/MediaReader.h"
#include "media/MediaTiming.h"
#include "media/PictureReader.h"
#include "server/sources/PlaybackControl.h"
#include "server/sources/VideoSource.h"

namespace Velmora::Media {

/// The pictures of a media file.
///
/// Time stamps begin at 0 and rise from frame to frame, also over loops, jumps and gaps in the file; between
/// them lies what the file tells. While it is paused the same picture comes again at the file's rate. At the
/// end, and after a seek beyond it, there is no frame until a seek or the loop leads back.
class MediaVideoSource : public Server::VideoSource {
public:
    using Control = std::shared_ptr<Server::PlaybackControl>;

    /// Null when nothing of the reader's stream can be decoded.
    static std::unique_ptr<MediaVideoSource> make(std::unique_ptr<MediaReader> reader, const Control& control,
                                                  const std::shared_ptr<MediaTiming>& timing);

    const Server::VideoFormat& format() const override { return m_format; }
    const Server::VideoFrame* next() override;
    void resume() override;

private:
    MediaVideoSource(std::unique_ptr<MediaReader> reader, const Control& control,
                     const std::shared_ptr<MediaTiming>& timing);

    bool decode();
    bool decodeOrLoop();
    void followSeek();
    void goTo(std::chrono::nanoseconds position);
    void takeOver(const MediaReader::Decoded& decoded);
    void noteScan(const AVFrame& frame);
    void stamp(std::chrono::nanoseconds duration);
    std::chrono::nanoseconds frameDuration() const;

    std::unique_ptr<MediaReader> m_reader;
    Control m_control;
    std::shared_ptr<MediaTiming> m_timing;
    std::uint32_t m_seeks;

    PictureReader m_pictures;
    Server::VideoFormat m_format;
    std::optional<Server::VideoBuffer> m_buffer;
    bool m_isInterlaced = false; ///< once a frame was; files may mark the frames between otherwise
    bool m_isTopFieldFirst = true;
    bool m_hasPending = false; ///< the frame in the buffer was not handed out yet

    std::chrono::nanoseconds m_filePosition{0}; ///< of the frame in the buffer
    std::chrono::nanoseconds m_fileEnd{0}; ///< of that frame's end
    std::optional<std::chrono::nanoseconds>
        m_lastFilePosition; ///< of the frame handed out last, in one piece
    Server::VideoFrame m_frame;
    std::uint64_t m_count = 0;
};

} // namespace Velmora::Media
