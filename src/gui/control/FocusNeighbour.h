#pragma once

#include <qnamespace.h>

class QWidget;

/// Where an arrow key leads among the controls of an area.
namespace FocusNeighbour {

/// The control in @p area that takes the focus and lies nearest to @p from in the direction of the arrow key:
/// one straight ahead before one that lies to the side. Null when there is none.
QWidget* of(const QWidget& from, const QWidget& area, Qt::Key arrow);

/// The first control in @p area that takes the focus by keys, in the order of tabs; null when there is none.
QWidget* first(const QWidget& area);

} // namespace FocusNeighbour
