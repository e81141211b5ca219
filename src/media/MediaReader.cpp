#include "media/MediaReader.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "media/Ffmpeg.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <thread>

namespace Velmora::Media {

using namespace std::chrono;

namespace {

/// Containers that hold pictures and sound themselves. Play lists, image sequences and devices, which lead to
/// other files and addresses, are left out.
constexpr char kContainers[] =
    "mov,mp4,m4a,3gp,3g2,mj2,mxf,mpegts,mpeg,matroska,webm,avi,nut,gxf,dv,flv,ogg,wav,w64,aiff,flac,mp3,aac,"
    "yuv4mpegpipe,mpegvideo,h264,hevc,ivf";
constexpr int kMostStreams = 64;
constexpr std::size_t kMostAudioStreams = 16;
constexpr std::int64_t kMostPixels = 8192LL * 8192;
/// Packets in a row that yield nothing; a damaged file is given up then.
constexpr int kMostFailures = 500;
constexpr int kMostDecodingThreads = 4;
constexpr AVRational kNanoseconds{1, 1'000'000'000};
constexpr AVRational kContainerTime{1, AV_TIME_BASE};

QString textOf(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

AVMediaType typeOf(MediaReader::Kind kind)
{
    return kind == MediaReader::Kind::Video ? AVMEDIA_TYPE_VIDEO : AVMEDIA_TYPE_AUDIO;
}

MediaHandle<AVFormatContext> openContainer(const QString& path, QString& error)
{
    av_log_set_level(AV_LOG_QUIET); // what matters is said here, once
    // A pipe or a device would hold up everything else.
    if (!QFileInfo(path).isFile()) {
        error = QFileInfo::exists(path) ? QStringLiteral("it is no file")
                                        : QStringLiteral("there is no such file");
        return nullptr;
    }
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    av_dict_set(&options, "format_whitelist", kContainers, 0);
    av_dict_set_int(&options, "max_streams", kMostStreams, 0);
    AVFormatContext* opened = nullptr;
    const QByteArray address = "file:" + QFile::encodeName(path);
    const int code = avformat_open_input(&opened, address.constData(), nullptr, &options);
    av_dict_free(&options);
    MediaHandle<AVFormatContext> format(opened);
    if (code < 0) {
        error = QStringLiteral("it is no media file that can be read (%1)").arg(textOf(code));
        return nullptr;
    }
    if (const int found = avformat_find_stream_info(opened, nullptr); found < 0) {
        error = QStringLiteral("what it holds cannot be told (%1)").arg(textOf(found));
        return nullptr;
    }
    return format;
}

MediaHandle<AVCodecContext> openDecoder(const AVStream& stream)
{
    const AVCodec* const codec = avcodec_find_decoder(stream.codecpar->codec_id);
    if (!codec)
        return nullptr;
    MediaHandle<AVCodecContext> decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0)
        return nullptr;
    decoder->pkt_timebase = stream.time_base;
    decoder->max_pixels = kMostPixels;
    if (decoder->codec_type == AVMEDIA_TYPE_VIDEO)
        decoder->thread_count =
            std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, kMostDecodingThreads);
    return avcodec_open2(decoder.get(), codec, nullptr) < 0 ? nullptr : std::move(decoder);
}

bool isPicture(const AVStream& stream)
{
    return (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

nanoseconds toNanoseconds(std::int64_t time, AVRational base)
{
    return nanoseconds(av_rescale_q(time, base, kNanoseconds));
}

} // namespace

MediaReader::MediaReader(MediaHandle<AVFormatContext> format, QString name)
    : m_format(std::move(format))
    , m_name(std::move(name))
    , m_packet(av_packet_alloc())
    , m_frame(av_frame_alloc())
{
}

MediaReader::~MediaReader() = default;

std::unique_ptr<MediaReader> MediaReader::open(const QString& path, Kind kind, QString& error)
{
    auto format = openContainer(path, error);
    if (!format)
        return nullptr;
    std::unique_ptr<MediaReader> reader(new MediaReader(std::move(format), QFileInfo(path).fileName()));
    reader->chooseStreams(kind);
    return reader;
}

/// Of the pictures the first, of the sound all: broadcast files have a stream for each channel or pair.
void MediaReader::chooseStreams(Kind kind)
{
    const std::size_t most = kind == Kind::Video ? 1 : kMostAudioStreams;
    for (unsigned i = 0; i < m_format->nb_streams; ++i) {
        AVStream& stream = *m_format->streams[i];
        stream.discard = AVDISCARD_ALL;
        if (stream.codecpar->codec_type != typeOf(kind) || isPicture(stream) || m_streams.size() == most)
            continue;
        if (auto decoder = openDecoder(stream)) {
            stream.discard = AVDISCARD_DEFAULT;
            m_streams.push_back({&stream, std::move(decoder)});
        }
    }
}

std::optional<MediaReader::Decoded> MediaReader::next()
{
    for (;;) {
        for (std::size_t i = 0; i < m_streams.size(); ++i) {
            if (receive(m_streams[i])) {
                m_failures = 0;
                return Decoded{i, m_frame.get()};
            }
        }
        if (m_isAtEnd || m_failures > kMostFailures)
            return std::nullopt;
        if (!feedNextPacket())
            drain();
    }
}

bool MediaReader::receive(Stream& stream)
{
    if (stream.isDrained)
        return false;
    const int code = avcodec_receive_frame(stream.decoder.get(), m_frame.get());
    if (code == 0)
        return true;
    stream.isDrained = code == AVERROR_EOF;
    if (code != AVERROR_EOF && code != AVERROR(EAGAIN))
        noteFailure("decoded", code);
    return false;
}

/// False at the end of the file.
bool MediaReader::feedNextPacket()
{
    const int code = av_read_frame(m_format.get(), m_packet.get());
    if (code < 0) {
        if (code == AVERROR_EOF)
            return false;
        noteFailure("read", code);
        return m_failures <= kMostFailures;
    }
    const auto stream = std::find_if(m_streams.begin(), m_streams.end(), [&](const Stream& each) {
        return each.stream->index == m_packet->stream_index;
    });
    if (stream != m_streams.end()) {
        const int sent = avcodec_send_packet(stream->decoder.get(), m_packet.get());
        if (sent < 0)
            noteFailure("decoded", sent);
    }
    av_packet_unref(m_packet.get());
    return true;
}

/// Lets the decoders give out what they still hold back.
void MediaReader::drain()
{
    m_isAtEnd = true;
    for (Stream& stream : m_streams)
        avcodec_send_packet(stream.decoder.get(), nullptr);
}

void MediaReader::noteFailure(const char* what, int code)
{
    ++m_failures;
    static LogThrottle throttle;
    throttle.log(spdlog::level::warn, "A part of '{}' cannot be {}: {}", m_name, what, textOf(code));
}

void MediaReader::seek(nanoseconds position)
{
    const auto target = av_rescale_q(position.count(), kNanoseconds, kContainerTime)
        + (m_format->start_time == AV_NOPTS_VALUE ? 0 : m_format->start_time);
    // A stream without an index is searched for a time, which may pass over the very first pictures. Where a
    // container knows no times, its beginning at least is known.
    const bool isSearched = (m_format->iformat->flags & AVFMT_TS_DISCONT) != 0;
    if ((isSearched && position <= nanoseconds(0))
        || avformat_seek_file(m_format.get(), -1, INT64_MIN, target, target, 0) < 0)
        avformat_seek_file(m_format.get(), -1, INT64_MIN, 0, INT64_MAX, AVSEEK_FLAG_BYTE);
    for (Stream& stream : m_streams) {
        avcodec_flush_buffers(stream.decoder.get());
        stream.isDrained = false;
    }
    m_isAtEnd = false;
    m_failures = 0;
}

std::optional<nanoseconds> MediaReader::timeOf(const Decoded& decoded) const
{
    if (decoded.frame->best_effort_timestamp == AV_NOPTS_VALUE)
        return std::nullopt;
    const auto start = m_format->start_time == AV_NOPTS_VALUE
        ? nanoseconds(0)
        : toNanoseconds(m_format->start_time, kContainerTime);
    return toNanoseconds(decoded.frame->best_effort_timestamp, stream(decoded.stream).time_base) - start;
}

nanoseconds MediaReader::endOf(std::size_t index) const
{
    const AVStream& each = stream(index);
    if (each.duration == AV_NOPTS_VALUE)
        return duration();
    const auto offset = each.start_time == AV_NOPTS_VALUE || m_format->start_time == AV_NOPTS_VALUE
        ? nanoseconds(0)
        : toNanoseconds(each.start_time, each.time_base)
            - toNanoseconds(m_format->start_time, kContainerTime);
    return offset + toNanoseconds(each.duration, each.time_base);
}

nanoseconds MediaReader::duration() const
{
    const bool isKnown = m_format->duration != AV_NOPTS_VALUE && m_format->duration > 0;
    return isKnown ? toNanoseconds(m_format->duration, kContainerTime) : nanoseconds(0);
}

} // namespace Velmora::Media
