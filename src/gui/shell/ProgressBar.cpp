#include "gui/shell/ProgressBar.h"

#include "gui/style/WzCustomStyle.h"

#include <QPainter>

namespace {

constexpr int kTickMs = 40;
constexpr int kRoundMs = 1600;
constexpr double kBlock = 0.33; ///< of the width

} // namespace

ProgressBar::ProgressBar(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    setFixedHeight(kHeight);
}

void ProgressBar::setBusy(bool busy)
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

void ProgressBar::setValue(double value)
{
    m_value = qBound(0.0, value, 1.0);
    update();
}

void ProgressBar::timerEvent(QTimerEvent*)
{
    update();
}

void ProgressBar::paintEvent(QPaintEvent*)
{
    const bool isBusy = m_timer.isActive();
    if (!isBusy && !m_value)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto fill = [&](double from, double share, ColourRole colour) {
        painter.setBrush(m_style.colour(colour));
        painter.drawRoundedRect(QRectF(from * width(), 1, share * width(), height() - 2), 3, 3);
    };
    fill(0, 1, ColourRole::Border);
    if (!isBusy) {
        fill(0, *m_value, ColourRole::Information);
        return;
    }
    // There and back.
    const double phase = static_cast<double>(m_since.elapsed() % kRoundMs) / kRoundMs;
    const double place = phase < 0.5 ? 2 * phase : 2 - 2 * phase;
    fill(place * (1 - kBlock), kBlock, ColourRole::Information);
}
