#include "gui/framework/SwipeFollower.h"

#include "gui/control/OneFingerGesture.h"
#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int kSlideMs = 120;
constexpr int kIconSize = 36;
/// A flick this fast, in pixels per millisecond, turns the page however short.
constexpr qreal kFlickSpeed = 0.8;

} // namespace

SwipeFollower::SwipeFollower(const WzCustomStyle& style, QWidget* area)
    : QWidget(area)
    , m_style(style)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    m_slide.setDuration(kSlideMs);
    connect(&m_slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { moveTo(value.toInt()); });
}

bool SwipeFollower::isFarEnough(qreal way, qint64 milliseconds, int width)
{
    const qreal distance = std::abs(way);
    return distance > width / 4.0 || (milliseconds > 0 && distance / qreal(milliseconds) > kFlickSpeed);
}

void SwipeFollower::follow(const OneFingerGesture& gesture)
{
    // The page that is still sliding is turned before the next one.
    if (m_slide.state() == QAbstractAnimation::Running)
        m_slide.setCurrentTime(m_slide.duration());
    if (!isVisible()) {
        m_slide.stop();
        m_screen = parentWidget()->grab();
        setGeometry(parentWidget()->rect());
        raise();
        show();
    }
    const int wanted = static_cast<int>(gesture.delta().x());
    const bool leadsNowhere = m_neighbourName && m_neighbourName(wanted > 0).isEmpty();
    // Where there is nothing to come, the screen gives way a little and shows by that that it will not go.
    moveTo(leadsNowhere ? wanted / 4 : wanted);
}

void SwipeFollower::release(const OneFingerGesture& gesture)
{
    if (!isVisible())
        return;
    const qreal way = gesture.delta().x();
    const bool leadsSomewhere = !m_neighbourName || !m_neighbourName(way > 0).isEmpty();
    const bool turnsPage = leadsSomewhere && isFarEnough(way, gesture.age(), width());
    slideTo(!turnsPage ? 0 : way > 0 ? width() : -width(), turnsPage);
}

void SwipeFollower::cancel()
{
    if (isVisible())
        slideTo(0, false);
}

void SwipeFollower::moveTo(int offset)
{
    m_offset = offset;
    update();
}

void SwipeFollower::slideTo(int offset, bool turnsPage)
{
    disconnect(m_afterSlide);
    m_afterSlide = connect(&m_slide, &QVariantAnimation::finished, this, [this, offset, turnsPage] {
        if (turnsPage)
            emit swiped(offset > 0);
        hide();
        m_screen = {};
    });
    m_slide.setStartValue(m_offset);
    m_slide.setEndValue(offset);
    m_slide.start();
}

void SwipeFollower::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(m_offset, 0, m_screen);
    const bool previous = m_offset > 0;
    const QRect page = rect().translated(previous ? m_offset - width() : m_offset + width(), 0);
    painter.fillRect(page, m_style.colour(ColourRole::InstrumentBackground));
    painter.fillRect(previous ? page.right() : page.left(), 0, 1, height(),
                     m_style.colour(ColourRole::Border));
    const QString name = m_neighbourName ? m_neighbourName(previous) : QString();
    if (name.isEmpty())
        return;
    painter.setFont(Fonts::ofPixels(Fonts::kReadOutPixels));
    painter.setPen(m_style.colour(ColourRole::Text));
    painter.drawText(page, Qt::AlignCenter, name);
    painter.drawPixmap(page.center() - QPoint(kIconSize / 2, 2 * kIconSize),
                       Icons::pixmap(Icons::path(QStringLiteral("layouts")), kIconSize,
                                     m_style.colour(ColourRole::SecondaryText), devicePixelRatioF()));
}
