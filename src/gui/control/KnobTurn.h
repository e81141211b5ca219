#pragma once

class QWidget;

/// What the knob does to the control that is being edited.
namespace KnobTurn {

/// One notch. Clockwise is more of a quantity, the next entry of a list, and further down what is scrolled.
void apply(QWidget& control, bool clockwise);

} // namespace KnobTurn
