#include "gui/shell/ProgressLine.h"

#include "gui/style/WzCustomStyle.h"

#include <QPainter>

ProgressLine::ProgressLine(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    setFixedHeight(kHeight);
}

void ProgressLine::setValue(double value)
{
    m_value = qBound(0.0, value, 1.0);
    update();
}

void ProgressLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_style.colour(ColourRole::Border));
    painter.fillRect(QRectF(0, 0, width() * m_value, height()), m_style.colour(ColourRole::Information));
}
