#pragma once

#include <qnamespace.h>

#include <vector>

class QWidget;

/// The controls of an area, and where an arrow key leads among them.
namespace FocusNeighbour {

/// What takes the focus by keys, in the order of tabs. What a control is made of counts as that control.
std::vector<QWidget*> controlsOf(const QWidget& area);

/// The control nearest to @p from in the direction of the arrow key, of those that are visible and enabled:
/// one straight ahead before one that lies to the side. Null when there is none.
QWidget* of(const QWidget& from, const std::vector<QWidget*>& controls, Qt::Key arrow);

/// The first of them that can take the focus now; null when there is none.
QWidget* first(const std::vector<QWidget*>& controls);

} // namespace FocusNeighbour
