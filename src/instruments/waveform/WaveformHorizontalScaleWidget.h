#pragma once

#include "instruments/waveform/WaveformScaleWidget.h"

/// The labels of positions on the line below each cell of a waveform, with what the cell shows in the middle.
class WaveformHorizontalScaleWidget : public WaveformScaleWidget {
    Q_OBJECT
public:
    using WaveformScaleWidget::WaveformScaleWidget;

protected:
    void paintLabels(QPainter& painter, const WzPalette& palette, const WaveformDisplay& display,
                     const WaveformDisplay::WaveformGeometry& geometry) const override;
};
