#include "instruments/audiometering/GradientWidget.h"

#include <QPaintEvent>
#include <QPainter>

GradientWidget::GradientWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void GradientWidget::setRange(double lower, double upper)
{
    if (upper > lower) {
        m_lower = lower;
        m_upper = upper;
    }
}

GradientWidget::Sections GradientWidget::byProportion(const Sections& byValue) const
{
    Sections sections = byValue;
    for (auto& [threshold, colour] : sections)
        threshold = proportionOf(threshold);
    return sections;
}

void GradientWidget::setColouredSectionsByValue(const Sections& sections)
{
    setColouredSectionsByProportion(byProportion(sections));
}

void GradientWidget::setColouredSectionsByProportion(const Sections& sections)
{
    m_sections = sections;
    rebuildBands();
    update();
}

void GradientWidget::setTransitionProportions(const std::vector<double>& proportions)
{
    m_transitions = proportions;
    rebuildBands();
    update();
}

void GradientWidget::rebuildBands()
{
    m_bands.build(m_sections, m_transitions, height());
}

void GradientWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    // Every pixel is filled, also before there are sections.
    painter.fillRect(event->rect(), Qt::black);
    m_bands.paint(painter, event->rect());
}

void GradientWidget::resizeEvent(QResizeEvent*)
{
    rebuildBands();
}
