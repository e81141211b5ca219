#include "gui/shell/PanelCard.h"

#include "gui/style/WzCustomStyle.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr qreal kRadius = 6;

} // namespace

PanelCard::PanelCard(const WzCustomStyle& style, bool isFlush, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
    , m_isFlush(isFlush)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PanelCard::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (m_isFlush) {
        const bool isAtTheRight = x() > 0;
        painter.fillRect(event->rect(),
                         m_style.colour(isAtTheRight ? ColourRole::Background : ColourRole::PanelBackdrop));
        painter.fillRect(isAtTheRight ? 0 : width() - 1, 0, 1, height(), m_style.colour(ColourRole::Frame));
        return;
    }
    painter.fillRect(event->rect(), m_style.colour(ColourRole::InstrumentBackground));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_style.colour(ColourRole::Border));
    painter.setBrush(m_style.colour(ColourRole::Background));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

void PanelCard::mousePressEvent(QMouseEvent* event)
{
    // No tap beside the panel.
    event->accept();
}
