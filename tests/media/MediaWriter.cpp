#include "MediaWriter.h"

#include "media/Ffmpeg.h"
#include "media/MediaHandles.h"
#include "server/sources/VideoFormats.h"

#include <QFile>

#include <cstring>
#include <stdexcept>
#include <vector>

using namespace Velmora::Server;
using Velmora::Media::MediaHandle;

namespace {

void check(int code, const char* what)
{
    if (code < 0)
        throw std::runtime_error(what);
}

/// An encoder with its stream.
struct Track {
    AVStream* stream = nullptr;
    MediaHandle<AVCodecContext> encoder;
};

void copyPlane(const VideoPlane& from, const AVComponentDescriptor& place, AVFrame& to)
{
    for (int y = 0; y < from.height; ++y) {
        std::uint8_t* const line = to.data[place.plane] + std::ptrdiff_t{y} * to.linesize[place.plane];
        for (int x = 0; x < from.width; ++x) {
            const std::uint16_t sample = from.line(y)[x];
            std::memcpy(line + x * place.step + place.offset, &sample, place.depth > 8 ? 2 : 1);
        }
    }
}

/// Of 4:2:0 every other line of colour.
void copyPicture(const VideoFrame& from, AVFrame& to)
{
    const AVPixFmtDescriptor& pixels = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(to.format));
    for (int i = 0; i < std::min(int{pixels.nb_components}, from.planes[3].samples ? 4 : 3); ++i) {
        VideoPlane plane = from.planes.at(static_cast<std::size_t>(i));
        if (pixels.log2_chroma_h == 1 && (i == 1 || i == 2)) {
            plane.height /= 2;
            plane.stride *= 2;
        }
        copyPlane(plane, pixels.comp[i], to);
    }
}

class File {
public:
    explicit File(const QString& path)
    {
        AVFormatContext* made = nullptr;
        check(avformat_alloc_output_context2(&made, nullptr, nullptr, QFile::encodeName(path).constData()),
              "container");
        m_format.reset(made);
        check(avio_open(&made->pb, QFile::encodeName(path).constData(), AVIO_FLAG_WRITE), "open");
    }
    ~File() { avio_closep(&m_format->pb); }

    Track addTrack(const QByteArray& codecName)
    {
        const AVCodec* const codec = avcodec_find_encoder_by_name(codecName.constData());
        if (!codec)
            throw std::runtime_error("no such encoder");
        Track track{avformat_new_stream(m_format.get(), nullptr),
                    MediaHandle<AVCodecContext>(avcodec_alloc_context3(codec))};
        track.encoder->strict_std_compliance = FF_COMPLIANCE_EXPERIMENTAL;
        if (m_format->oformat->flags & AVFMT_GLOBALHEADER)
            track.encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        return track;
    }
    void open(Track& track, const QByteArray& optionTexts = {})
    {
        AVDictionary* options = nullptr;
        av_dict_parse_string(&options, optionTexts.constData(), "=", ":", 0);
        const int code = avcodec_open2(track.encoder.get(), nullptr, &options);
        av_dict_free(&options);
        check(code, "encoder");
        check(avcodec_parameters_from_context(track.stream->codecpar, track.encoder.get()), "parameters");
        track.stream->time_base = track.encoder->time_base;
    }
    void begin() { check(avformat_write_header(m_format.get(), nullptr), "header"); }
    void write(Track& track, const AVFrame* frame)
    {
        check(avcodec_send_frame(track.encoder.get(), frame), "encode");
        const MediaHandle<AVPacket> packet(av_packet_alloc());
        while (avcodec_receive_packet(track.encoder.get(), packet.get()) == 0) {
            av_packet_rescale_ts(packet.get(), track.encoder->time_base, track.stream->time_base);
            packet->stream_index = track.stream->index;
            check(av_interleaved_write_frame(m_format.get(), packet.get()), "write");
        }
    }
    void end() { check(av_write_trailer(m_format.get()), "trailer"); }

private:
    MediaHandle<AVFormatContext> m_format;
};

void setUpVideo(AVCodecContext& encoder, AVStream& stream, const MediaWriter& writer,
                const VideoFormat& format)
{
    encoder.width = format.width;
    encoder.height = format.height;
    encoder.pix_fmt = av_get_pix_fmt(writer.pixels.constData());
    encoder.time_base = {format.rateDenominator, format.rateNumerator};
    encoder.framerate = {format.rateNumerator, format.rateDenominator};
    stream.avg_frame_rate = encoder.framerate;
    encoder.flags |= AV_CODEC_FLAG_QSCALE;
    encoder.global_quality = FF_QP2LAMBDA;
    encoder.gop_size = 12;
    const auto colours = writer.colours.split(' ');
    encoder.color_primaries =
        static_cast<AVColorPrimaries>(av_color_primaries_from_name(colours.at(0).constData()));
    encoder.color_trc =
        static_cast<AVColorTransferCharacteristic>(av_color_transfer_from_name(colours.at(1).constData()));
    encoder.colorspace = static_cast<AVColorSpace>(av_color_space_from_name(colours.at(2).constData()));
    encoder.color_range = static_cast<AVColorRange>(av_color_range_from_name(colours.at(3).constData()));
    if (format.interlaced) {
        encoder.field_order = format.topFieldFirst ? AV_FIELD_TT : AV_FIELD_BB;
        encoder.flags |= AV_CODEC_FLAG_INTERLACED_DCT | AV_CODEC_FLAG_INTERLACED_ME;
    }
}

void setUpAudio(AVCodecContext& encoder, const MediaWriter& writer)
{
    encoder.sample_rate = writer.audioRate;
    encoder.sample_fmt = encoder.codec->sample_fmts[0];
    encoder.bits_per_raw_sample = 24;
    av_channel_layout_default(&encoder.ch_layout, writer.audioChannels);
    encoder.time_base = {1, writer.audioRate};
}

MediaHandle<AVFrame> videoFrame(const AVCodecContext& encoder, const VideoFrame& picture, std::int64_t stamp)
{
    MediaHandle<AVFrame> frame(av_frame_alloc());
    frame->width = encoder.width;
    frame->height = encoder.height;
    frame->format = encoder.pix_fmt;
    check(av_frame_get_buffer(frame.get(), 0), "frame");
    frame->pts = stamp;
    frame->interlaced_frame = picture.format.interlaced;
    frame->top_field_first = picture.format.topFieldFirst;
    copyPicture(picture, *frame);
    return frame;
}

/// Samples of one stream, of which each has its share of the source's channels.
MediaHandle<AVFrame> audioFrame(const AVCodecContext& encoder, const AudioBuffer& samples,
                                std::size_t firstChannel, std::int64_t stamp)
{
    MediaHandle<AVFrame> frame(av_frame_alloc());
    frame->nb_samples = static_cast<int>(samples.frames());
    frame->format = encoder.sample_fmt;
    frame->sample_rate = encoder.sample_rate;
    av_channel_layout_copy(&frame->ch_layout, &encoder.ch_layout);
    check(av_frame_get_buffer(frame.get(), 0), "audio frame");
    frame->pts = stamp;
    const int channels = encoder.ch_layout.nb_channels;
    for (int channel = 0; channel < channels; ++channel) {
        const float* const plane = samples.plane(firstChannel + static_cast<std::size_t>(channel));
        for (int i = 0; i < frame->nb_samples; ++i) {
            const auto at = std::ptrdiff_t{i} * channels + channel;
            if (encoder.sample_fmt == AV_SAMPLE_FMT_S16)
                reinterpret_cast<std::int16_t*>(frame->data[0])[at] =
                    static_cast<std::int16_t>(plane[i] * 32768.0F);
            else
                reinterpret_cast<std::int32_t*>(frame->data[0])[at] =
                    static_cast<std::int32_t>(static_cast<double>(plane[i]) * 2147483648.0);
        }
    }
    return frame;
}

} // namespace

void MediaWriter::write(const QString& path, VideoSource* video, AudioSource* audio, double seconds) const
{
    File file(path);
    std::vector<Track> tracks;
    if (video) {
        tracks.push_back(file.addTrack(codec));
        setUpVideo(*tracks.back().encoder, *tracks.back().stream, *this, video->format());
        file.open(tracks.back(), options);
    }
    for (int i = 0; audio && i < audioStreams; ++i) {
        tracks.push_back(file.addTrack(audioCodec));
        setUpAudio(*tracks.back().encoder, *this);
        file.open(tracks.back());
    }
    file.begin();
    for (int i = 0; video && i < frames; ++i) {
        const int stamp = stamps.isEmpty() ? i : stamps.at(i);
        file.write(tracks[0], videoFrame(*tracks[0].encoder, *video->next(), stamp).get());
    }
    constexpr int kPiece = 1000;
    for (int at = 0; audio && at < seconds * audioRate; at += kPiece) {
        AudioBuffer samples(kPiece);
        if (audio->read(samples.planes()).frames != samples.frames())
            throw std::runtime_error("sound has ended");
        for (int i = 0; i < audioStreams; ++i) {
            Track& track = tracks[static_cast<std::size_t>(i) + (video ? 1 : 0)];
            const auto firstChannel = static_cast<std::size_t>(i * audioChannels);
            file.write(track, audioFrame(*track.encoder, samples, firstChannel, at).get());
        }
    }
    for (Track& track : tracks)
        file.write(track, nullptr);
    file.end();
}
