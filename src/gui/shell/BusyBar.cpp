#include "gui/shell/BusyBar.h"

#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr int kTickMs = 40;
constexpr int kRoundMs = 1600;
constexpr double kBlock = 0.33; ///< of the width

} // namespace

BusyBar::BusyBar(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    setFixedHeight(kHeight);
}

void BusyBar::setBusy(bool busy)
{
    if (busy == m_timer.isActive())
        return;
    if (busy) {
        m_since.start();
        m_timer.start(kTickMs, this);
    } else {
        m_timer.stop();
    }
    update();
}

void BusyBar::timerEvent(QTimerEvent*)
{
    update();
}

void BusyBar::paintEvent(QPaintEvent*)
{
    if (!m_timer.isActive())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_style.colour(ColourRole::Border));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0, 1, 0, -1), 3, 3);
    // There and back.
    const double phase = static_cast<double>(m_since.elapsed() % kRoundMs) / kRoundMs;
    const double place = phase < 0.5 ? 2 * phase : 2 - 2 * phase;
    painter.setBrush(m_style.colour(ColourRole::Information));
    painter.drawRoundedRect(QRectF(place * (1 - kBlock) * width(), 1, kBlock * width(), height() - 2), 3, 3);
}
