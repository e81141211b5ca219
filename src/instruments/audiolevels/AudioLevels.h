#pragma once

#include "gui/control/ElementState.h"
#include "gui/framework/WzSubwindowContent.h"

#include <memory>

class MeterSet;
class MeterSetReceiver;
class MeterView;

/// Shows the levels of sixteen audio channels, with their held peaks and the phase of the pairs. It asks for
/// the meter packets only while it can be seen.
class AudioLevels : public WzSubwindowContent {
    Q_OBJECT
public:
    static constexpr QLatin1String kClassName{"AudioLevels", 11};

    AudioLevels(WzSubWindow* subWindow, Velmora::Wz::Device device);
    ~AudioLevels() override;

    QString helpText() const override;
    void recalculateActionWidgetWidths(bool touchLayout) override;

    Setting* ballistics() const { return m_ballistics; }
    Setting* hatHoldTime() const { return m_hatHoldTime; }

public slots:
    void fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMeteringBallisticsUpdated(QStringList values, QStringList reasons, bool active);
    void fromConfigCoreAudioMeteringHatHoldTimeUpdated(QStringList values, QStringList reasons, bool active);

signals:
    void toConfigCoreAudioMeteringBallisticsChosen(unsigned ballistics);
    void toConfigCoreAudioMeteringHatHoldTimeChosen(double seconds);
    void toCommandcore_resetPeakHold(bool reset);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

    void onExposedChanged(bool exposed) override;
    void onFrozenChanged(bool frozen) override;
    void onConnectionChanged(bool connected) override;
    void onStaleChanged(int seconds) override;

private:
    void onMeters(const MeterSet& meters, int lost);
    void updateTitle();
    QString toolTipAt(const QPoint& position) const;

    MeterView* const m_view;
    std::unique_ptr<MeterSetReceiver> m_receiver; ///< while meters are wanted
    ElementState m_source;
    Setting* const m_ballistics;
    Setting* const m_hatHoldTime;
};
