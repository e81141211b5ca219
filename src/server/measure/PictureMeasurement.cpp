#include "server/measure/PictureMeasurement.h"

#include "server/measure/SharedWaveform.h"
#include "server/sources/VideoFormats.h"

#include <algorithm>

namespace Velmora::Server {

using namespace std::chrono_literals;

namespace {

/// The pace at which the glow of a lost signal fades.
constexpr auto kLossInterval = 40ms;
/// When the program was held up for longer than this, it goes on from there instead of catching up.
constexpr auto kLongestLag = 500ms;
/// A machine that is too slow shows every so many pictures at least.
constexpr int kMostPassedOver = 4;

} // namespace

PictureMeasurement::PictureMeasurement(int instrumentPort, FormatListener onFormat)
    : m_port(instrumentPort)
    , m_onFormat(std::move(onFormat))
    , m_timer(this)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PictureMeasurement::onTick);
}

PictureMeasurement::~PictureMeasurement() = default;

void PictureMeasurement::setSource(const Source& source)
{
    m_source = source;
    m_frame = nullptr;
    m_hasRead = false;
    m_hasToldFormat = false;
    restart();
}

void PictureMeasurement::setWaveformSettings(const WaveformSettings& settings)
{
    m_settings = settings;
    for (const auto& waveform : m_waveforms)
        waveform->setSettings(settings);
}

void PictureMeasurement::setWantedContents(const std::vector<QSize>& contents)
{
    const bool wasIdle = m_waveforms.empty();
    const auto isWanted = [&](const auto& waveform) {
        return std::find(contents.begin(), contents.end(), waveform->content()) != contents.end();
    };
    m_waveforms.erase(std::stable_partition(m_waveforms.begin(), m_waveforms.end(), isWanted),
                      m_waveforms.end());
    for (const QSize& content : contents) {
        const auto shows = [&](const auto& waveform) { return waveform->content() == content; };
        if (std::none_of(m_waveforms.begin(), m_waveforms.end(), shows)) {
            m_waveforms.push_back(std::make_unique<SharedWaveform>(m_port, content));
            m_waveforms.back()->setSettings(m_settings);
        }
    }
    if (m_waveforms.empty())
        m_timer.stop();
    else if (wasIdle)
        resume();
}

void PictureMeasurement::resume()
{
    if (m_source)
        m_source->resume();
    m_hasRead = false;
    restart();
}

/// The picture that comes next is due now.
void PictureMeasurement::restart()
{
    if (m_waveforms.empty())
        return;
    if (!m_hasRead)
        readNext();
    m_begin = Clock::now() - (m_frame ? m_frame->timeStamp : 0ns);
    m_timer.start(0);
}

void PictureMeasurement::readNext()
{
    const bool hadEnded = m_hasRead && !m_frame;
    m_frame = m_source ? m_source->next() : nullptr;
    m_hasRead = true;
    if (hadEnded && m_frame)
        m_begin = Clock::now() - m_frame->timeStamp;
}

void PictureMeasurement::onTick()
{
    tellFormat();
    if (!m_frame) {
        drawLoss();
        readNext();
        schedule();
        return;
    }
    const auto lag = Clock::now() - (m_begin + m_frame->timeStamp);
    if (lag > kLongestLag)
        m_begin += lag;
    draw(*m_frame);
    readNext();
    passOver();
    schedule();
}

/// Skips the pictures whose time is over already.
void PictureMeasurement::passOver()
{
    for (int i = 0; i < kMostPassedOver && m_frame; ++i) {
        const auto end = m_begin + m_frame->timeStamp + VideoFormats::timeOfFrame(m_frame->format, 1);
        if (Clock::now() < end)
            return;
        tellFormat();
        readNext();
    }
}

void PictureMeasurement::schedule()
{
    const auto wait = m_frame ? m_begin + m_frame->timeStamp - Clock::now() : kLossInterval;
    m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(std::clamp<Clock::duration>(wait, 0ns, 1s)));
}

void PictureMeasurement::draw(const VideoFrame& frame)
{
    for (const auto& waveform : m_waveforms)
        waveform->draw(frame, (m_begin + frame.timeStamp).time_since_epoch());
}

void PictureMeasurement::drawLoss()
{
    for (const auto& waveform : m_waveforms)
        waveform->drawLoss(Clock::now().time_since_epoch());
}

void PictureMeasurement::tellFormat()
{
    const auto format = m_frame ? std::optional(m_frame->format) : std::nullopt;
    if (m_hasToldFormat && format == m_toldFormat)
        return;
    m_hasToldFormat = true;
    m_toldFormat = format;
    m_onFormat(m_source, format);
}

} // namespace Velmora::Server
