#pragma once

#include "instruments/audiometering/GradientWidget.h"

/// The bar of one channel with its hat, the held peak. Readings are in the unit of the scale. They may come
/// as often as they like; what is shown follows at the window's tick and repaints only the rows that it
/// changes.
class AudioMeterWidget : public GradientWidget {
    Q_OBJECT
public:
    static constexpr float kLowest = -99.0F;
    static constexpr int kHatHeight = 3;

    explicit AudioMeterWidget(QWidget* parent);

    /// A reading that is no number stands for silence.
    void setValue(float value);
    void setPeakHoldValue(float value);
    float value() const { return m_value; }
    float peakHoldValue() const { return m_peakHold; }

    /// The bands where the bar is not lit; as long as they do not differ from the lit ones, nothing does.
    void setUnlitSectionsByValue(const Sections& sections);
    /// The channel carries data: there is nothing to meter.
    void setDataMeter(bool isData);
    bool isDataMeter() const { return m_isDataMeter; }
    /// Readings are overdue: everything lit is grey.
    void setStaleColours(const QColor& lit, const QColor& hat);
    void setStale(bool stale);

    /// Take over the newest readings.
    void latchNewValues();
    void latchNewPeakValue();
    /// Has repainted what differs from what is on the screen.
    void triggerUpdate();

public slots:
    /// The window's tick: shows the newest readings, if they look different.
    void rateLimitTimerExpired();

protected:
    void paintEvent(QPaintEvent* event) override;
    void rebuildBands() override;

private:
    int rowOf(float reading) const;
    QRect calculateAudioHatRect() const;
    void paintAudioHat(QPainter& painter, const QRect& area) const;

    float m_pendingValue = kLowest;
    float m_pendingPeakHold = kLowest;
    float m_value = kLowest;
    float m_peakHold = kLowest;
    bool m_isDataMeter = false;
    bool m_isStale = false;

    int m_row = 0; ///< the uppermost one that is lit
    QRect m_hat;
    int m_shownRow = 0;
    QRect m_shownHat;

    Sections m_unlitSections; ///< by proportion
    ColourBands m_unlit;
    QColor m_staleLit;
    QColor m_staleHat;
};
