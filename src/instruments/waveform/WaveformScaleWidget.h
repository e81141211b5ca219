#pragma once

#include "gui/style/WzPalette.h"
#include "instruments/waveform/WaveformDisplay.h"

#include <QPixmap>
#include <QWidget>

class WzCustomStyle;

/// Labels beside a waveform, drawn once and kept. Mouse and fingers go through to the picture, over which
/// they lie in full-width mode.
class WaveformScaleWidget : public QWidget {
    Q_OBJECT
public:
    WaveformScaleWidget(const WzCustomStyle& style, QWidget* parent);

    void setDisplay(const WaveformDisplay& display);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// @p geometry has at least one cell.
    virtual void paintLabels(QPainter& painter, const WzPalette& palette, const WaveformDisplay& display,
                             const WaveformDisplay::WaveformGeometry& geometry) const = 0;

private:
    void render();

    const WzCustomStyle& m_style;
    WaveformDisplay m_display;
    QPixmap m_labels;
};
