#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>

#include <array>
#include <optional>

class QPainter;

/// Levels with one decimal, "-18.0", put together from figures that were drawn once: nothing is laid out or
/// allocated while painting.
class MeterFigures {
public:
    MeterFigures() = default;
    MeterFigures(const QFont& font, const QColor& colour, qreal devicePixelRatio);

    /// In tenths of a decibel; nothing for "--.-". It ends at @p right.
    void draw(QPainter& painter, int right, int baseline, std::optional<int> tenths) const;

    /// What a level is shown as. Levels that round alike are alike.
    static int tenthsOf(float levelDb);

private:
    enum Glyph { Point = 10, Minus, Dash };
    static constexpr int kGlyphs = 13;
    /// The longest text: sign, three figures, point, figure.
    static constexpr int kMostGlyphs = 6;

    QPixmap m_glyphs; ///< beside each other, each in a cell of equal size
    std::array<int, kGlyphs> m_advance{};
    QSize m_cell;
    int m_ascent = 0;
};
