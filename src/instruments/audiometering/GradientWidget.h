#pragma once

#include "instruments/audiometering/ColourBands.h"

#include <QWidget>

/// A vertical bar in bands of colour, from its foot to its top.
class GradientWidget : public QWidget {
    Q_OBJECT
public:
    /// Where a band begins, and its colour, from the foot upwards.
    using Sections = ColourBands::Sections;

    explicit GradientWidget(QWidget* parent);

    /// The reading at the foot and at the top, for the sections that are set from now on.
    void setRange(double lower, double upper);
    double lower() const { return m_lower; }
    double upper() const { return m_upper; }

    /// Thresholds as readings.
    void setColouredSectionsByValue(const Sections& sections);
    /// Thresholds as shares of the height.
    void setColouredSectionsByProportion(const Sections& sections);
    /// The share of the height over which each band blends into the one above it; 0 for a sharp edge.
    void setTransitionProportions(const std::vector<double>& proportions);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// Size, sections or transitions are others.
    virtual void rebuildBands();

    const ColourBands& bands() const { return m_bands; }
    const std::vector<double>& transitions() const { return m_transitions; }
    Sections byProportion(const Sections& byValue) const;
    double proportionOf(double reading) const { return (reading - m_lower) / (m_upper - m_lower); }

private:
    double m_lower = 0;
    double m_upper = 1;
    Sections m_sections; ///< by proportion
    std::vector<double> m_transitions;
    ColourBands m_bands;
};
