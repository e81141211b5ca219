#pragma once

#include "instruments/waveform/WaveformScalePainter.h"
#include "instruments/waveform/WaveformScaleWidget.h"

/// The labels of levels at one side of a waveform.
class WaveformVerticalScaleWidget : public WaveformScaleWidget {
    Q_OBJECT
public:
    using Side = WaveformScalePainter::Side;

    WaveformVerticalScaleWidget(Side side, const WzCustomStyle& style, QWidget* parent);

    /// Where the picture begins in the widget.
    void setPictureTop(int top);

protected:
    void paintLabels(QPainter& painter, const WzPalette& palette, const WaveformDisplay& display,
                     const WaveformDisplay::WaveformGeometry& geometry) const override;

private:
    const Side m_side;
    int m_pictureTop = 0;
};
