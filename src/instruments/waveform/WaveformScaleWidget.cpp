#include "instruments/waveform/WaveformScaleWidget.h"

#include "gui/style/WzCustomStyle.h"
#include "instruments/waveform/WaveformColours.h"

#include <QEvent>
#include <QPainter>

WaveformScaleWidget::WaveformScaleWidget(const WzCustomStyle& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void WaveformScaleWidget::setDisplay(const WaveformDisplay& display)
{
    if (display == m_display)
        return;
    m_display = display;
    m_labels = {};
    update();
}

void WaveformScaleWidget::render()
{
    m_labels = QPixmap(size() * devicePixelRatioF());
    m_labels.setDevicePixelRatio(devicePixelRatioF());
    const WzPalette palette = m_style.instrumentPalette();
    m_labels.fill(m_display.isFullWidth ? QColor::fromRgba(WaveformColours::kOverlaidScale)
                                        : palette.colour(ColourRole::InstrumentBackground));
    const auto geometry = m_display.geometry();
    if (geometry.cells().empty())
        return;
    QPainter painter(&m_labels);
    paintLabels(painter, palette, m_display, geometry);
}

void WaveformScaleWidget::paintEvent(QPaintEvent*)
{
    if (size().isEmpty())
        return;
    if (m_labels.isNull())
        render();
    QPainter(this).drawPixmap(0, 0, m_labels);
}

void WaveformScaleWidget::resizeEvent(QResizeEvent*)
{
    m_labels = {};
}

void WaveformScaleWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange)
        m_labels = {};
    QWidget::changeEvent(event);
}
