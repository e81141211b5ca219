#include "gui/picture/FeedPicture.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// The instrument draws a picture for three seconds after it was asked for.
constexpr int kRenewalMs = 1000;
constexpr double kUsualRefreshRate = 60.0;
/// While no picture has come for a while it is enough to look for one now and then.
constexpr int kIdleLookMs = 100;

int refreshIntervalMs()
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const double rate = screen ? screen->refreshRate() : kUsualRefreshRate;
    return static_cast<int>(std::lround(1000.0 / std::clamp(rate, 10.0, 240.0)));
}

} // namespace

FeedPicture::FeedPicture(QObject* parent)
    : QObject(parent)
{
}

FeedPicture::~FeedPicture() = default;

void FeedPicture::setHost(const PictureHost& host)
{
    if (host == m_host)
        return;
    m_host = host;
    renewReader();
}

void FeedPicture::setImage(const std::string& name, QSize largest)
{
    if (name == m_image && largest == m_largest)
        return;
    m_image = name;
    m_largest = largest;
    renewReader();
}

void FeedPicture::setSize(QSize size)
{
    if (size == m_size)
        return;
    m_size = size;
    // Pictures of the new size come soon; the present one does not fit any more.
    if (m_reader)
        look(true);
}

void FeedPicture::setWatched(bool watched)
{
    if (watched == m_watched)
        return;
    m_watched = watched;
    renewReader();
}

void FeedPicture::renewReader()
{
    m_reader.reset();
    m_renewal.stop();
    m_refresh.stop();
    m_isIdle = false;
    setState(State::None);
    if (m_watched && !m_largest.isEmpty())
        m_reader = m_host.makeReader(m_image, m_largest);
    if (!m_reader)
        return;
    m_renewal.start(kRenewalMs, this);
    m_refresh.start(refreshIntervalMs(), Qt::PreciseTimer, this);
    emit wanted();
}

void FeedPicture::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_renewal.timerId()) {
        setIdle(!std::exchange(m_hasMoved, false));
        emit wanted();
    } else if (event->timerId() == m_refresh.timerId())
        look();
}

/// Only whether there is a newer picture; the drawing waits for the paint event.
void FeedPicture::look(bool again)
{
    const Reader::Result result =
        m_reader->read([this](const auto& view) { m_newestFits = fits(view); }, again);
    switch (m_reader->state()) {
    case Reader::State::NoPicture:
        setState(State::None);
        break;
    case Reader::State::Live:
        setState(m_newestFits ? State::Live : State::OtherSize);
        break;
    case Reader::State::Stale:
        setState(m_newestFits ? State::Stale : State::OtherSize);
        break;
    }
    if (result != Reader::Result::Drawn)
        return;
    m_hasMoved = true;
    setIdle(false);
    emit arrived();
}

void FeedPicture::setIdle(bool idle)
{
    if (idle == m_isIdle)
        return;
    m_isIdle = idle;
    if (idle)
        m_refresh.start(kIdleLookMs, this);
    else
        m_refresh.start(refreshIntervalMs(), Qt::PreciseTimer, this);
}

void FeedPicture::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    emit stateChanged();
}

bool FeedPicture::fits(const Velmora::Feed::PictureView& view) const
{
    return QSize(view.width, view.height) == m_size;
}

FeedPicture::Reader::Result FeedPicture::read(const std::function<void(const QImage&)>& use, bool again)
{
    if (!m_reader)
        return Reader::Result::None;
    return m_reader->read(
        [&](const Velmora::Feed::PictureView& view) {
            // This may be a picture that nobody has looked at yet.
            m_newestFits = fits(view);
            if (!m_newestFits)
                return;
            const auto* const bytes = reinterpret_cast<const uchar*>(view.pixels);
            const auto bytesPerLine = static_cast<int>(view.stride) * static_cast<int>(sizeof(*view.pixels));
            use(QImage(bytes, view.width, view.height, bytesPerLine, QImage::Format_ARGB32_Premultiplied));
        },
        again);
}

QImage FeedPicture::copy()
{
    constexpr int kTries = 3;
    for (int i = 0; i < kTries; ++i) {
        QImage copied;
        if (read([&copied](const QImage& picture) { copied = picture.copy(); }, true) != Reader::Result::Torn)
            return copied;
    }
    return {};
}
