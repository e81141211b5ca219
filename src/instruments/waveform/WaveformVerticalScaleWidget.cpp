#include "instruments/waveform/WaveformVerticalScaleWidget.h"

WaveformVerticalScaleWidget::WaveformVerticalScaleWidget(Side side, const WzCustomStyle& style,
                                                         QWidget* parent)
    : WaveformScaleWidget(style, parent)
    , m_side(side)
{
}

/// It changes with the size of the content only, which is part of the display.
void WaveformVerticalScaleWidget::setPictureTop(int top)
{
    m_pictureTop = top;
}

void WaveformVerticalScaleWidget::paintLabels(QPainter& painter, const WzPalette& palette,
                                              const WaveformDisplay& display,
                                              const WaveformDisplay::WaveformGeometry& geometry) const
{
    WaveformScalePainter(painter, palette, display, geometry).paintMargin(m_side, rect(), m_pictureTop);
}
