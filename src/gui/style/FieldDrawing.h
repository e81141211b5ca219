#pragma once

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionSlider;
class WzCustomStyle;

/// Sliders and the fields that take a number, a text or a choice.
namespace FieldDrawing {

/// @p groove and @p handle as the style places them.
void drawSlider(QPainter& painter, const QStyleOptionSlider& slider, const QRect& groove, const QRect& handle,
                const WzCustomStyle& style);
/// The black ground of a field, and its frame by state.
void drawField(QPainter& painter, const QStyleOption& option);
/// A choice: a raised field with the chevron of what opens.
void drawChoice(QPainter& painter, const QStyleOption& option);

} // namespace FieldDrawing
