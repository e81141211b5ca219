#pragma once

#include <QSize>

class QPainter;
class QStyleOptionMenuItem;
class WzCustomStyle;

/// The rows of menus: icon or check mark, text, what stands behind a tab in the text, and a chevron where
/// another menu follows.
namespace MenuRow {

inline constexpr int kHeight = 56;

QSize size(const QStyleOptionMenuItem& item);
void draw(QPainter& painter, const QStyleOptionMenuItem& item, const WzCustomStyle& style);

} // namespace MenuRow
