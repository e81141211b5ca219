#include "instruments/audiometering/AudioMeterWidget.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

AudioMeterWidget::AudioMeterWidget(QWidget* parent)
    : GradientWidget(parent)
{
}

void AudioMeterWidget::setValue(float value)
{
    m_pendingValue = std::isnan(value) ? kLowest : value;
}

void AudioMeterWidget::setPeakHoldValue(float value)
{
    m_pendingPeakHold = std::isnan(value) ? kLowest : value;
}

void AudioMeterWidget::setUnlitSectionsByValue(const Sections& sections)
{
    m_unlitSections = byProportion(sections);
    rebuildBands();
    update();
}

void AudioMeterWidget::setDataMeter(bool isData)
{
    if (isData == m_isDataMeter)
        return;
    m_isDataMeter = isData;
    setVisible(!isData);
}

void AudioMeterWidget::setStaleColours(const QColor& lit, const QColor& hat)
{
    m_staleLit = lit;
    m_staleHat = hat;
}

void AudioMeterWidget::setStale(bool stale)
{
    if (stale == m_isStale)
        return;
    m_isStale = stale;
    update();
}

int AudioMeterWidget::rowOf(float reading) const
{
    return ColourBands::rowOfProportion(proportionOf(static_cast<double>(reading)), height());
}

void AudioMeterWidget::latchNewValues()
{
    m_value = m_pendingValue;
    m_row = rowOf(m_value);
}

void AudioMeterWidget::latchNewPeakValue()
{
    m_peakHold = m_pendingPeakHold;
    m_hat = calculateAudioHatRect();
}

/// The middle row of the hat is the one that its reading would light; where there is no level there is no
/// hat.
QRect AudioMeterWidget::calculateAudioHatRect() const
{
    const int row = rowOf(m_peakHold);
    if (row >= height())
        return {};
    return {0, std::clamp(row - 1, 0, std::max(0, height() - kHatHeight)), width(), kHatHeight};
}

void AudioMeterWidget::triggerUpdate()
{
    if (m_row != m_shownRow) {
        const auto [upper, lower] = std::minmax(m_row, m_shownRow);
        update(0, upper, width(), lower - upper);
        m_shownRow = m_row;
    }
    if (m_hat != m_shownHat) {
        // United only where they overlap, so that a hat far above the bar does not repaint what is between.
        if (m_hat.intersects(m_shownHat)) {
            update(m_hat | m_shownHat);
        } else {
            update(m_hat);
            update(m_shownHat);
        }
        m_shownHat = m_hat;
    }
}

void AudioMeterWidget::rateLimitTimerExpired()
{
    if (m_pendingValue != m_value)
        latchNewValues();
    if (m_pendingPeakHold != m_peakHold)
        latchNewPeakValue();
    triggerUpdate();
}

void AudioMeterWidget::rebuildBands()
{
    GradientWidget::rebuildBands();
    m_unlit.build(m_unlitSections, transitions(), height());
    latchNewValues();
    latchNewPeakValue();
    m_shownRow = m_row;
    m_shownHat = m_hat;
    update();
}

void AudioMeterWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    for (const QRect& dirty : event->region()) {
        const QRect unlit(0, 0, width(), m_shownRow);
        const QRect lit(0, m_shownRow, width(), height() - m_shownRow);
        m_unlit.paint(painter, unlit & dirty);
        if (m_isStale)
            painter.fillRect(lit & dirty, m_staleLit);
        else
            bands().paint(painter, lit & dirty);
        paintAudioHat(painter, dirty);
    }
}

void AudioMeterWidget::paintAudioHat(QPainter& painter, const QRect& area) const
{
    const QRect hat = m_shownHat & area;
    if (!hat.isEmpty())
        painter.fillRect(hat, m_isStale ? m_staleHat : QColor(Qt::white));
}
