#include "gui/control/FocusNeighbour.h"

#include <QScrollArea>

#include <algorithm>
#include <limits>

namespace FocusNeighbour {
namespace {

/// What lies to the side comes after all that lies straight ahead, and the way there costs more than the way
/// ahead.
constexpr int kAside = 1 << 20;
constexpr int kSidewaysCost = 4;

bool canTakeFocus(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled();
}

bool isControl(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0;
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

std::vector<QWidget*> controlsOf(const QWidget& area)
{
    std::vector<QWidget*> controls;
    for (QWidget* widget = area.nextInFocusChain(); widget && widget != &area;
         widget = widget->nextInFocusChain()) {
        if (!area.isAncestorOf(widget) || widget->window() != area.window() || !isControl(*widget))
            continue;
        const auto isWithinOther = [&area, widget] {
            for (const QWidget* around = widget->parentWidget(); around && around != &area;
                 around = around->parentWidget()) {
                // Scroll areas hold other controls, all else that takes the focus is one.
                if (isControl(*around) && !qobject_cast<const QScrollArea*>(around))
                    return true;
            }
            return false;
        };
        if (!isWithinOther())
            controls.push_back(widget);
    }
    return controls;
}

QWidget* of(const QWidget& from, const std::vector<QWidget*>& controls, Qt::Key arrow)
{
    // In the coordinates of the window, which all of them share.
    const auto placeOf = [](const QWidget& widget) {
        return QRect(widget.mapTo(widget.window(), QPoint()), widget.size());
    };
    QWidget* best = nullptr;
    int lowest = std::numeric_limits<int>::max();
    for (QWidget* const widget : controls) {
        if (widget == &from || !canTakeFocus(*widget))
            continue;
        const Distance found = distance(placeOf(from), placeOf(*widget), arrow);
        if (found.isAhead && found.cost < lowest) {
            lowest = found.cost;
            best = widget;
        }
    }
    return best;
}

QWidget* first(const std::vector<QWidget*>& controls)
{
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [](const QWidget* widget) { return canTakeFocus(*widget); });
    return found == controls.end() ? nullptr : *found;
}

} // namespace FocusNeighbour
