#pragma once

#include "media/MediaHandles.h"

#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

struct AVStream;

namespace Velmora::Media {

/// Reads a media file packet by packet and decodes some of its streams. Times count from the start of the
/// file.
class MediaReader {
public:
    enum class Kind { Video, Audio };

    /// Opens a file for all of its decodable streams of a kind. Null, with one line in @p error, when it is
    /// no media file; without streams when it has none of the kind.
    static std::unique_ptr<MediaReader> open(const QString& path, Kind kind, QString& error);
    ~MediaReader();

    std::size_t streamCount() const { return m_streams.size(); }
    const AVStream& stream(std::size_t index) const { return *m_streams[index].stream; }
    AVFormatContext& format() { return *m_format; }

    struct Decoded {
        std::size_t stream;
        const AVFrame* frame; ///< valid until the next call
    };
    /// The next decoded frame of any of the streams; nothing at the end of the file.
    std::optional<Decoded> next();
    /// Goes to the last place at or before @p position from which everything can be decoded.
    void seek(std::chrono::nanoseconds position);

    /// Nothing where the frame has no time stamp.
    std::optional<std::chrono::nanoseconds> timeOf(const Decoded& decoded) const;
    /// How long a stream lasts, counted from the start of the file; 0 when unknown.
    std::chrono::nanoseconds endOf(std::size_t index) const;
    /// Of the whole file; 0 when unknown.
    std::chrono::nanoseconds duration() const;

private:
    struct Stream {
        AVStream* stream;
        MediaHandle<AVCodecContext> decoder;
        bool isDrained = false;
    };

    MediaReader(MediaHandle<AVFormatContext> format, QString name);

    void chooseStreams(Kind kind);
    bool receive(Stream& stream);
    bool feedNextPacket();
    void drain();
    void noteFailure(const char* what, int code);

    MediaHandle<AVFormatContext> m_format;
    QString m_name; ///< for the log
    std::vector<Stream> m_streams;
    MediaHandle<AVPacket> m_packet;
    MediaHandle<AVFrame> m_frame;
    bool m_isAtEnd = false;
    int m_failures = 0; ///< since the last frame
};

} // namespace Velmora::Media
