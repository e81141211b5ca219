#include "media/PictureReader.h"

#include "media/Ffmpeg.h"
#include "server/sources/VideoFormats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace Velmora::Media {

using namespace Sdi::PayloadId;
using Server::VideoBuffer;
using Server::VideoFormat;
namespace VideoFormats = Server::VideoFormats;

namespace {

constexpr int kHighestSd = 576;

const AVPixFmtDescriptor& descriptorOf(int pixelFormat)
{
    return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(pixelFormat));
}

bool isRgb(const AVPixFmtDescriptor& pixels, int pixelFormat)
{
    constexpr unsigned kColourFlags = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL;
    return (pixels.flags & kColourFlags) != 0 || pixelFormat == AV_PIX_FMT_XYZ12LE
        || pixelFormat == AV_PIX_FMT_XYZ12BE;
}

bool hasAlpha(const AVPixFmtDescriptor& pixels)
{
    return (pixels.flags & AV_PIX_FMT_FLAG_ALPHA) != 0 && pixels.nb_components == 4;
}

/// Whether samples can be picked out of the frame one by one.
bool hasWholeSamples(const AVPixFmtDescriptor& pixels)
{
    constexpr unsigned kOthers = AV_PIX_FMT_FLAG_BE | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM
        | AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_FLOAT | AV_PIX_FMT_FLAG_BAYER;
    const bool isEven =
        std::all_of(pixels.comp, pixels.comp + pixels.nb_components, [&](const auto& component) {
            return component.depth >= 8 && component.depth == pixels.comp[0].depth;
        });
    return (pixels.flags & kOthers) == 0 && isEven && pixels.nb_components != 2;
}

/// Whether they are also those of the buffer, with no line or column missing.
bool isReadable(const AVPixFmtDescriptor& pixels, int pixelFormat)
{
    return hasWholeSamples(pixels) && pixelFormat != AV_PIX_FMT_XYZ12LE && pixels.log2_chroma_h == 0
        && pixels.log2_chroma_w <= 1;
}

int depthOf(const AVPixFmtDescriptor& pixels)
{
    int depth = 0;
    for (int i = 0; i < pixels.nb_components; ++i)
        depth = std::max(depth, pixels.comp[i].depth);
    return depth <= 8 ? 8 : depth <= 10 ? 10 : 12;
}

bool isFullRange(const AVFrame& frame, const AVPixFmtDescriptor& pixels)
{
    if (frame.color_range != AVCOL_RANGE_UNSPECIFIED)
        return frame.color_range == AVCOL_RANGE_JPEG;
    return std::strncmp(pixels.name, "yuvj", 4) == 0;
}

/// There is no full range of 8 bits in SDI: such samples are widened to 10.
BitDepth codeOf(int depth, bool fullRange)
{
    if (fullRange)
        return depth == 12 ? BitDepth::Bits12FullRange : BitDepth::Bits10FullRange;
    return depth == 8 ? BitDepth::Bits8 : depth == 10 ? BitDepth::Bits10 : BitDepth::Bits12;
}

SampleStructure samplingOf(const AVPixFmtDescriptor& pixels, int pixelFormat)
{
    const bool alpha = hasAlpha(pixels);
    if (isRgb(pixels, pixelFormat))
        return alpha ? SampleStructure::RgbA4444 : SampleStructure::Rgb444;
    if (pixels.nb_components >= 3 && pixels.log2_chroma_w == 0)
        return alpha ? SampleStructure::YCbCrA4444 : SampleStructure::YCbCr444;
    return alpha ? SampleStructure::YCbCrA4224 : SampleStructure::YCbCr422;
}

/// By the matrix, since it is what takes the codes to colours; where that is not told, by the primaries, and
/// without either by the size, as usual.
Colourimetry colourimetryOf(const AVFrame& frame)
{
    switch (frame.colorspace) {
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
    case AVCOL_SPC_ICTCP:
        return Colourimetry::Rec2020;
    case AVCOL_SPC_BT709:
        return Colourimetry::Rec709;
    case AVCOL_SPC_SMPTE170M:
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_FCC:
        return Colourimetry::Rec601;
    default:
        break;
    }
    switch (frame.color_primaries) {
    case AVCOL_PRI_BT2020:
        return Colourimetry::Rec2020;
    case AVCOL_PRI_BT709:
        return Colourimetry::Rec709;
    case AVCOL_PRI_SMPTE170M:
    case AVCOL_PRI_BT470BG:
        return Colourimetry::Rec601;
    case AVCOL_PRI_UNSPECIFIED:
        return frame.height <= kHighestSd ? Colourimetry::Rec601 : Colourimetry::Rec709;
    default:
        return Colourimetry::Unknown;
    }
}

TransferCurve transferOf(const AVFrame& frame)
{
    switch (frame.color_trc) {
    case AVCOL_TRC_ARIB_STD_B67:
        return TransferCurve::Hlg;
    case AVCOL_TRC_SMPTE2084:
        return TransferCurve::Pq;
    default:
        return TransferCurve::SdrTv;
    }
}

/// Where the samples of one component lie in a frame, and what becomes of them.
struct Component {
    const AVComponentDescriptor& place;
    int bits; ///< wanted
};

/// Reads one line of samples, each of a byte or a little-endian word. None gets past its number of bits,
/// whatever a decoder leaves in the others.
template<typename Sample>
void readLine(const std::uint8_t* bytes, const Component& component, std::uint16_t* line, int width)
{
    const auto& place = component.place;
    const auto mask = static_cast<std::uint16_t>((1U << place.depth) - 1);
    const auto sampleAt = [bytes](std::ptrdiff_t offset) {
        Sample sample;
        std::memcpy(&sample, bytes + offset, sizeof sample);
        return sample;
    };
    if (place.step == int{sizeof(Sample)} && place.shift == 0 && place.depth == component.bits) {
        // The usual case: of pieces of one size the compiler makes vectors.
        constexpr int kPiece = 32;
        const auto copy = [&](int x) {
            line[x] = static_cast<std::uint16_t>(sampleAt(x * std::ptrdiff_t{sizeof(Sample)}) & mask);
        };
        int x = 0;
        for (; x + kPiece <= width; x += kPiece) {
            for (int i = 0; i < kPiece; ++i)
                copy(x + i);
        }
        for (; x < width; ++x)
            copy(x);
        return;
    }
    const int up = std::max(component.bits - place.depth, 0);
    const int down = std::max(place.depth - component.bits, 0);
    for (int x = 0; x < width; ++x) {
        const int sample = (sampleAt(std::ptrdiff_t{x} * place.step) >> place.shift) & mask;
        line[x] = static_cast<std::uint16_t>((sample >> down) << up);
    }
}

/// The 8-bit full-range code as the 10-bit one of the same level. Each gets a code of its own.
std::array<std::uint16_t, 256> widenedFullRange(bool isDifference)
{
    std::array<std::uint16_t, 256> table{};
    for (int code = 0; code < 256; ++code) {
        const double level = (code - (isDifference ? 128 : 0)) / 255.0;
        const double widened = std::floor(1023.0 * level + 0.5) + (isDifference ? 512 : 0);
        table[static_cast<std::size_t>(code)] = static_cast<std::uint16_t>(std::clamp(widened, 0.0, 1023.0));
    }
    return table;
}

void widenFullRange(VideoBuffer& buffer, int plane)
{
    const bool isDifference = (plane == 1 || plane == 2) && !VideoFormats::isRgb(buffer.format().sampling);
    const auto table = widenedFullRange(isDifference);
    for (int y = 0; y < buffer.format().height; ++y) {
        std::uint16_t* const line = buffer.line(plane, y);
        std::transform(line, line + buffer.planeWidth(plane), line,
                       [&](std::uint16_t code) { return table[code & 0xFFU]; });
    }
}

void readPlane(const AVFrame& frame, const Component& component, VideoBuffer& buffer, int plane)
{
    const auto source = static_cast<std::size_t>(component.place.plane);
    for (int y = 0; y < buffer.format().height; ++y) {
        const std::uint8_t* const bytes =
            frame.data[source] + std::ptrdiff_t{y} * frame.linesize[source] + component.place.offset;
        const int width = buffer.planeWidth(plane);
        if (component.place.depth + component.place.shift > 8)
            readLine<std::uint16_t>(bytes, component, buffer.line(plane, y), width);
        else
            readLine<std::uint8_t>(bytes, component, buffer.line(plane, y), width);
    }
}

void readComponent(const AVFrame& frame, int plane, VideoBuffer& buffer)
{
    const AVComponentDescriptor& place = descriptorOf(frame.format).comp[plane];
    const bool isWidened = place.depth == 8 && buffer.format().depth == BitDepth::Bits10FullRange;
    readPlane(frame, {place, isWidened ? 8 : VideoFormats::bitsOf(buffer.format().depth)}, buffer, plane);
    if (isWidened)
        widenFullRange(buffer, plane);
}

/// Of a picture that has luminance alone.
void fillDifferences(VideoBuffer& buffer)
{
    const auto middle = static_cast<std::uint16_t>(1U << (VideoFormats::bitsOf(buffer.format().depth) - 1));
    for (int plane = 1; plane < 3; ++plane) {
        for (int y = 0; y < buffer.format().height; ++y)
            std::fill_n(buffer.line(plane, y), buffer.planeWidth(plane), middle);
    }
}

/// The readable layout that comes closest.
AVPixelFormat readableLayout(SampleStructure sampling, int depth)
{
    constexpr std::array kDepths{8, 10, 12};
    struct Row {
        SampleStructure sampling;
        std::array<AVPixelFormat, 3> layouts;
    };
    static constexpr std::array kRows{
        Row{SampleStructure::YCbCr422, {AV_PIX_FMT_YUV422P, AV_PIX_FMT_YUV422P10LE, AV_PIX_FMT_YUV422P12LE}},
        Row{SampleStructure::YCbCr444, {AV_PIX_FMT_YUV444P, AV_PIX_FMT_YUV444P10LE, AV_PIX_FMT_YUV444P12LE}},
        Row{SampleStructure::Rgb444, {AV_PIX_FMT_GBRP, AV_PIX_FMT_GBRP10LE, AV_PIX_FMT_GBRP12LE}},
        Row{SampleStructure::YCbCrA4224,
            {AV_PIX_FMT_YUVA422P, AV_PIX_FMT_YUVA422P10LE, AV_PIX_FMT_YUVA422P12LE}},
        Row{SampleStructure::YCbCrA4444,
            {AV_PIX_FMT_YUVA444P, AV_PIX_FMT_YUVA444P10LE, AV_PIX_FMT_YUVA444P12LE}},
        Row{SampleStructure::RgbA4444, {AV_PIX_FMT_GBRAP, AV_PIX_FMT_GBRAP10LE, AV_PIX_FMT_GBRAP12LE}},
    };
    const auto row =
        std::find_if(kRows.begin(), kRows.end(), [&](const Row& each) { return each.sampling == sampling; });
    const auto column = std::find(kDepths.begin(), kDepths.end(), depth) - kDepths.begin();
    return row->layouts.at(static_cast<std::size_t>(column));
}

} // namespace

VideoFormat PictureReader::formatOf(const AVFrame& frame)
{
    const AVPixFmtDescriptor& pixels = descriptorOf(frame.format);
    VideoFormat format;
    format.width = frame.width;
    format.height = frame.height;
    format.sampling = samplingOf(pixels, frame.format);
    format.depth = codeOf(depthOf(pixels), isFullRange(frame, pixels));
    format.colourimetry = colourimetryOf(frame);
    format.transfer = transferOf(frame);
    return format;
}

bool PictureReader::read(const AVFrame& frame, VideoBuffer& buffer)
{
    const AVPixFmtDescriptor& original = descriptorOf(frame.format);
    const bool isDirect = isReadable(original, frame.format);
    const AVFrame* const source = isDirect ? &frame : rearranged(frame, buffer.format().interlaced);
    if (!source)
        return false;
    const int components = std::min(int{descriptorOf(source->format).nb_components}, buffer.planeCount());
    for (int plane = 0; plane < components; ++plane) {
        // Of 4:2:0 only the colour has to come from the scaler.
        const bool isColour = plane == 1 || plane == 2;
        const bool isWhole = hasWholeSamples(original) && !isRgb(original, frame.format) && !isColour;
        readComponent(isWhole ? frame : *source, plane, buffer);
    }
    if (components == 1)
        fillDifferences(buffer);
    return true;
}

const AVFrame* PictureReader::rearranged(const AVFrame& frame, bool interlaced)
{
    const AVPixFmtDescriptor& pixels = descriptorOf(frame.format);
    const AVPixelFormat layout = readableLayout(samplingOf(pixels, frame.format), depthOf(pixels));
    const int fields = interlaced && frame.height % 4 == 0 ? 2 : 1;
    if (!prepare(frame, layout, frame.height / fields))
        return nullptr;
    for (int field = 0; field < fields; ++field) {
        if (!scaleField(frame, field, fields))
            return nullptr;
    }
    return m_rearranged.get();
}

/// Makes the scaler for a field (or frame) of so many lines, and the frame that it writes to.
bool PictureReader::prepare(const AVFrame& frame, int layout, int lines)
{
    if (!m_rearranged || m_rearranged->width != frame.width || m_rearranged->height != frame.height
        || m_rearranged->format != layout) {
        m_rearranged.reset(av_frame_alloc());
        m_rearranged->width = frame.width;
        m_rearranged->height = frame.height;
        m_rearranged->format = layout;
        if (av_frame_get_buffer(m_rearranged.get(), 0) < 0) {
            m_rearranged.reset();
            return false;
        }
    }
    constexpr int kFlags = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP | SWS_FULL_CHR_H_INT;
    m_scaler.reset(sws_getCachedContext(
        m_scaler.release(), frame.width, lines, static_cast<AVPixelFormat>(frame.format), frame.width, lines,
        static_cast<AVPixelFormat>(layout), kFlags, nullptr, nullptr, nullptr));
    if (!m_scaler)
        return false;
    // Codes stay what they are: the range of the output is that of the input.
    const int* const matrix = sws_getCoefficients(SWS_CS_DEFAULT);
    const int range = isFullRange(frame, descriptorOf(frame.format)) ? 1 : 0;
    sws_setColorspaceDetails(m_scaler.get(), matrix, range, matrix, range, 0, 1 << 16, 1 << 16);
    return true;
}

bool PictureReader::scaleField(const AVFrame& frame, int field, int fields)
{
    std::array<const std::uint8_t*, 4> from{};
    std::array<std::uint8_t*, 4> to{};
    std::array<int, 4> fromStride{};
    std::array<int, 4> toStride{};
    const AVFrame& target = *m_rearranged;
    for (std::size_t plane = 0; plane < 4; ++plane) {
        // A palette is no picture and has no second field.
        from[plane] =
            frame.linesize[plane] > 0 ? frame.data[plane] + field * frame.linesize[plane] : frame.data[plane];
        to[plane] = target.data[plane] ? target.data[plane] + field * target.linesize[plane] : nullptr;
        fromStride[plane] = frame.linesize[plane] * fields;
        toStride[plane] = target.linesize[plane] * fields;
    }
    return sws_scale(m_scaler.get(), from.data(), fromStride.data(), 0, frame.height / fields, to.data(),
                     toStride.data())
        >= 0;
}

} // namespace Velmora::Media
