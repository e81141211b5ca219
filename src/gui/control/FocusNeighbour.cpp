#include "gui/control/FocusNeighbour.h"

#include <QList>
#include <QWidget>

#include <limits>

namespace FocusNeighbour {
namespace {

/// What lies to the side comes after all that lies straight ahead, and the way there costs more than the way
/// ahead.
constexpr int kAside = 1 << 20;
constexpr int kSidewaysCost = 4;

bool takesFocus(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0;
}

/// The gap between two ranges; 0 where they overlap.
int gap(int firstBegin, int firstEnd, int secondBegin, int secondEnd)
{
    return qMax(0, qMax(secondBegin - firstEnd, firstBegin - secondEnd));
}

struct Distance {
    bool isAhead = false;
    int cost = 0;
};

Distance distance(const QRect& from, const QRect& to, Qt::Key arrow)
{
    const bool isVertical = arrow == Qt::Key_Up || arrow == Qt::Key_Down;
    const bool isForward = arrow == Qt::Key_Right || arrow == Qt::Key_Down;
    const QPoint step = to.center() - from.center();
    const int ahead = (isVertical ? step.y() : step.x()) * (isForward ? 1 : -1);
    const int sideways = isVertical ? gap(from.left(), from.right(), to.left(), to.right())
                                    : gap(from.top(), from.bottom(), to.top(), to.bottom());
    const int along = isVertical ? gap(from.top(), from.bottom(), to.top(), to.bottom())
                                 : gap(from.left(), from.right(), to.left(), to.right());
    // Half a control ahead at least, or the neighbours in a row of unequal heights would lie above it.
    const int least = (isVertical ? qMin(from.height(), to.height()) : qMin(from.width(), to.width())) / 2;
    const int offset = isVertical ? qAbs(step.x()) : qAbs(step.y());
    const int aside = sideways > 0 ? kAside + sideways * kSidewaysCost : 0;
    return {ahead >= least, along * 2 + aside + offset / 4};
}

} // namespace

QWidget* of(const QWidget& from, const QWidget& area, Qt::Key arrow)
{
    const auto placeOf = [&area](const QWidget& widget) {
        return QRect(widget.mapTo(&area, QPoint()), widget.size());
    };
    QWidget* best = nullptr;
    int lowest = std::numeric_limits<int>::max();
    const auto widgets = area.findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
        if (widget == &from || !takesFocus(*widget) || widget->isAncestorOf(&from))
            continue;
        const Distance found = distance(placeOf(from), placeOf(*widget), arrow);
        if (found.isAhead && found.cost < lowest) {
            lowest = found.cost;
            best = widget;
        }
    }
    return best;
}

QWidget* first(const QWidget& area)
{
    for (QWidget* widget = area.nextInFocusChain(); widget != &area; widget = widget->nextInFocusChain()) {
        if (area.isAncestorOf(widget) && takesFocus(*widget))
            return widget;
    }
    return nullptr;
}

} // namespace FocusNeighbour
