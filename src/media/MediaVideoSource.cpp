#include "media/MediaVideoSource.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "media/Ffmpeg.h"
#include "server/sources/VideoFormats.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Velmora::Media {

using namespace std::chrono;
using Server::VideoFormat;
using Server::VideoFrame;
namespace VideoFormats = Server::VideoFormats;

namespace {

/// A gap in a file's time stamps that is longer is taken for a mistake.
constexpr seconds kLongestGap(10);
/// How much earlier to try when decoding cannot begin at the place itself.
constexpr std::array kSeekLeads{seconds(0), seconds(2), seconds(15)};
constexpr AVRational kFallbackRate{25, 1};
constexpr int kHighestRate = 1000;

/// Rates in use. What a container computes from its time stamps lies beside them.
constexpr std::array kRates{AVRational{24000, 1001}, AVRational{24, 1}, AVRational{25, 1},
                            AVRational{30000, 1001}, AVRational{30, 1}, AVRational{48000, 1001},
                            AVRational{48, 1},       AVRational{50, 1}, AVRational{60000, 1001},
                            AVRational{60, 1}};
constexpr double kRateTolerance = 2e-4; ///< a fifth of what 1000/1001 makes

AVRational rateOf(MediaReader& reader)
{
    AVStream& stream = *reader.format().streams[reader.stream(0).index];
    const AVRational told = av_guess_frame_rate(&reader.format(), &stream, nullptr);
    if (told.num <= 0 || told.den <= 0 || av_q2d(told) > kHighestRate)
        return kFallbackRate;
    for (const AVRational& rate : kRates) {
        if (std::abs(av_q2d(told) / av_q2d(rate) - 1.0) < kRateTolerance)
            return rate;
    }
    return told;
}

} // namespace

std::unique_ptr<MediaVideoSource> MediaVideoSource::make(std::unique_ptr<MediaReader> reader,
                                                         const Control& control,
                                                         const std::shared_ptr<MediaTiming>& timing)
{
    std::unique_ptr<MediaVideoSource> source(new MediaVideoSource(std::move(reader), control, timing));
    // Only a decoded frame tells for sure what it is.
    return source->decode() ? std::move(source) : nullptr;
}

MediaVideoSource::MediaVideoSource(std::unique_ptr<MediaReader> reader, const Control& control,
                                   const std::shared_ptr<MediaTiming>& timing)
    : m_reader(std::move(reader))
    , m_control(control)
    , m_timing(timing)
    , m_seeks(control->seekCount())
{
    const AVRational rate = rateOf(*m_reader);
    m_format.rateNumerator = rate.num;
    m_format.rateDenominator = rate.den;
}

const VideoFrame* MediaVideoSource::next()
{
    followSeek();
    if (m_control->isPaused() && !m_hasPending && m_lastFilePosition) {
        stamp(frameDuration());
        return &m_frame;
    }
    if (!m_hasPending && !decodeOrLoop()) {
        m_lastFilePosition.reset();
        return nullptr;
    }
    m_hasPending = false;
    const auto step = m_lastFilePosition ? m_filePosition - *m_lastFilePosition : nanoseconds(0);
    const bool isPlausible = step > nanoseconds(0) && step < kLongestGap;
    m_lastFilePosition = m_filePosition;
    const auto before = m_frame.timeStamp;
    m_frame = m_buffer->frame(m_count, before);
    stamp(isPlausible ? step : frameDuration());
    return &m_frame;
}

/// Gives the frame its number, and its time that much behind the last one's.
void MediaVideoSource::stamp(nanoseconds duration)
{
    if (m_count > 0)
        m_frame.timeStamp += duration;
    m_frame.number = m_count++;
}

bool MediaVideoSource::decodeOrLoop()
{
    if (decode())
        return true;
    if (!m_control->isLooping())
        return false;
    if (m_fileEnd > nanoseconds(0))
        m_timing->setLoopLength(m_fileEnd);
    m_reader->seek(nanoseconds(0));
    m_lastFilePosition.reset();
    return decode();
}

void MediaVideoSource::followSeek()
{
    if (std::exchange(m_seeks, m_control->seekCount()) != m_control->seekCount())
        goTo(m_control->seekPosition());
}

void MediaVideoSource::resume()
{
    m_seeks = m_control->seekCount();
    goTo(m_timing->inFile(m_control->position(), m_control->isLooping()));
}

void MediaVideoSource::goTo(nanoseconds position)
{
    m_lastFilePosition.reset();
    // Where a container does not know from which places decoding can begin, it may take an earlier one.
    const auto end = m_reader->endOf(0);
    const bool isBehindEnd = end > nanoseconds(0) && position >= end;
    for (const auto lead : kSeekLeads) {
        m_hasPending = false;
        m_reader->seek(std::max<nanoseconds>(position - lead, nanoseconds(0)));
        if ((decode() && m_filePosition <= position) || isBehindEnd)
            break;
    }
    while (m_hasPending && m_fileEnd <= position) {
        m_hasPending = false;
        decode();
    }
}

/// Brings the next picture of the file into the buffer. False at its end.
bool MediaVideoSource::decode()
{
    while (const auto decoded = m_reader->next()) {
        const AVFrame& frame = *decoded->frame;
        if (frame.width > VideoFormats::kLargestSide || frame.height > VideoFormats::kLargestSide)
            continue;
        takeOver(*decoded);
        if (m_pictures.read(frame, *m_buffer)) {
            m_hasPending = true;
            return true;
        }
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Pictures of layout {} cannot be shown", frame.format);
    }
    return false;
}

/// Takes over what the frame tells of itself.
void MediaVideoSource::takeOver(const MediaReader::Decoded& decoded)
{
    noteScan(*decoded.frame);
    VideoFormat format = PictureReader::formatOf(*decoded.frame);
    format.rateNumerator = m_format.rateNumerator;
    format.rateDenominator = m_format.rateDenominator;
    format.interlaced = m_isInterlaced;
    format.topFieldFirst = m_isTopFieldFirst;
    if (m_buffer && format != m_format)
        log()->info("The pictures of the file have become {}", VideoFormats::toText(format));
    if (!m_buffer || format != m_format)
        m_buffer.emplace(format);
    m_format = format;
    m_filePosition = m_reader->timeOf(decoded).value_or(m_fileEnd);
    m_fileEnd = m_filePosition + frameDuration();
}

/// By the frame's own mark, or the stream's where the coding knows none.
void MediaVideoSource::noteScan(const AVFrame& frame)
{
    switch (m_reader->stream(0).codecpar->field_order) {
    case AV_FIELD_TT:
    case AV_FIELD_BT: // the bottom field coded first, but shown second
        m_isInterlaced = true;
        break;
    case AV_FIELD_BB:
    case AV_FIELD_TB:
        m_isInterlaced = true;
        m_isTopFieldFirst = false;
        break;
    default:
        break;
    }
    if (frame.interlaced_frame) {
        m_isInterlaced = true;
        m_isTopFieldFirst = frame.top_field_first != 0;
    }
}

nanoseconds MediaVideoSource::frameDuration() const
{
    return nanoseconds(std::nano::den * m_format.rateDenominator / m_format.rateNumerator);
}

} // namespace Velmora::Media
