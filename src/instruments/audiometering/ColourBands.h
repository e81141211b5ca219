#pragma once

#include <QColor>
#include <QRect>

#include <utility>
#include <vector>

class QPainter;

/// Bands of colour over each other, as rows of pixels. A value.
class ColourBands {
public:
    /// Where a band begins, as a share of the height, and its colour, from the foot upwards. Where the first
    /// one begins does not matter.
    using Sections = std::vector<std::pair<double, QColor>>;

    /// @p transitions tells over which share of the height each band blends into the one above it, in the
    /// order of the boundaries; 0, as for those that are not given, for a sharp edge.
    void build(const Sections& sections, const std::vector<double>& transitions, int height);
    /// The part of the bands that lies in @p area.
    void paint(QPainter& painter, const QRect& area) const;

    /// A share of the height as a row, counted from the top.
    static int rowOfProportion(double proportion, int height);

private:
    /// Rows of one colour.
    struct Stripe {
        int top;
        int bottom; ///< the row behind the last one
        QColor colour;
    };

    void addTransition(int from, int to, const QColor& above, const QColor& below);

    std::vector<Stripe> m_stripes; ///< from the top downwards
};
