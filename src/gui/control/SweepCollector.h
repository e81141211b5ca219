#pragma once

class FocusSweepManager;
class QWidget;

/// Makes the focus sweep of an area from the controls that stand in it.
namespace SweepCollector {

/// All that can have the focus, in reading order. Left and right move along a row, up and down between rows.
void adoptControlsOf(QWidget& area, FocusSweepManager& manager);

} // namespace SweepCollector
