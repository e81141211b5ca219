#pragma once

class QAbstractScrollArea;

namespace TouchScroll {

/// Lets a finger, or the mouse, drag the contents and throw them. A tap stays a tap.
void enable(QAbstractScrollArea& area);

} // namespace TouchScroll
