#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>

#include <array>
#include <optional>

class QPainter;

/// Readings like "-18.0", put together from figures that were drawn once: nothing is laid out or allocated
/// while painting.
class MeterFigures {
public:
    MeterFigures() = default;
    MeterFigures(const QFont& font, const QColor& colour, qreal devicePixelRatio);

    /// A whole number of the last one of @p decimals; nothing for "--.-". It ends at @p end.
    void draw(QPainter& painter, const QPoint& end, std::optional<int> number, int decimals) const;

    /// What a reading is shown as, in units of the last decimal. Readings that round alike are alike.
    static int numberOf(float reading, int decimals);

private:
    enum Glyph { Point = 10, Minus, Dash };
    static constexpr int kGlyphs = 13;
    /// The longest text: sign, point, and four figures.
    static constexpr int kMostGlyphs = 6;

    QPixmap m_glyphs; ///< beside each other, each in a cell of equal size
    std::array<int, kGlyphs> m_advance{};
    QSize m_cell;
    int m_ascent = 0;
};
