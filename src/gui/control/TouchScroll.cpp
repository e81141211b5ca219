#include "gui/control/TouchScroll.h"

#include <QAbstractScrollArea>
#include <QScroller>
#include <QScrollerProperties>

namespace {

constexpr double kStartPixels = 12;
constexpr double kMetresPerInch = 0.0254;

} // namespace

void TouchScroll::enable(QAbstractScrollArea& area)
{
    QWidget* const viewport = area.viewport();
    QScroller* const scroller = QScroller::scroller(viewport);
    QScrollerProperties properties = scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::DragStartDistance,
                               kStartPixels * kMetresPerInch / viewport->logicalDpiY());
    // The end of a list is shown by its standing still.
    const QVariant never = QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff);
    properties.setScrollMetric(QScrollerProperties::VerticalOvershootPolicy, never);
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy, never);
    scroller->setScrollerProperties(properties);
    QScroller::grabGesture(viewport, QScroller::LeftMouseButtonGesture);
}
