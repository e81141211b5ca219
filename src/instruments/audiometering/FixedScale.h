#pragma once

#include "instruments/audiometering/MeterScale.h"

#include <QColor>
#include <QFont>

class QPainter;

/// One of the scales beside the bars of a pair: ticks in fixed places from the foot to the top. All that
/// stands on one row of the screen has its place from here.
class FixedScale {
public:
    struct Look {
        QColor line; ///< through the field of a pair
        QColor majorLine; ///< where the colour of the bars changes, and the ticks
        QColor label;
        QFont font;
        QFont boldFont;
    };

    /// Outside of the bars: where ticks and labels begin, seen from them.
    enum class Side { Left, Right };

    FixedScale() = default;
    /// The bar has its upper edge at @p top and @p pixelsPerStep for each step of the scale.
    FixedScale(const MeterScale& scale, int top, int pixelsPerStep);

    int top() const { return m_top; }
    int height() const { return m_height; }
    int bottom() const { return m_top + m_height; }

    /// The uppermost row that a reading lights; bottom() at the foot, below it, and for no number.
    int rowOf(double reading) const;

    /// Only ticks that stand far enough from each other are told apart.
    bool showsMinorTicks() const { return m_showsMinorTicks; }
    /// The ticks with a label when each needs @p labelPixels.
    std::vector<double> labelledTicks(int labelPixels) const;

    /// Lines at the labelled ticks over the width of the field.
    void paintLines(QPainter& painter, int left, int width, const Look& look) const;
    /// Ticks and labels, from the bars outwards. @p edge is the first column of the margin on the right side,
    /// and the one behind the last on the left side.
    void paintMargin(QPainter& painter, Side side, int edge, int width, const Look& look) const;

private:
    void paintTicks(QPainter& painter, Side side, int edge, const Look& look) const;
    bool isThreshold(double reading) const;

    const MeterScale* m_scale = nullptr;
    int m_top = 0;
    int m_height = 0;
    double m_pixelsPerUnit = 1;
    bool m_showsMinorTicks = false;
    bool m_isDense = false; ///< so small that everything is thinned out
};
