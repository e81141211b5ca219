#pragma once

#include "instruments/waveform/MeasurementCursorLabels.h"
#include "instruments/waveform/MeasurementCursors.h"

#include <QObject>

class WaveformClientPreset;
struct WaveformActions;

/// What the cursors are read in.
struct CursorScale {
    MeasurementCursorLabels::XScaleMode x = MeasurementCursorLabels::XScaleMode::Percent;
    MeasurementCursorLabels::YScaleMode y = MeasurementCursorLabels::YScaleMode::Percent;
    int percentReference = 0;
    bool isDisplayed = true;
    Qt::Corner corner = Qt::BottomLeftCorner; ///< where the figures stand

    friend bool operator==(const CursorScale&, const CursorScale&) = default;
};

/// The measurement cursors of one window and the settings that move them. They are the window's own.
class MeasurementCursorSettings : public QObject {
    Q_OBJECT
public:
    /// The actions have to outlive it.
    MeasurementCursorSettings(const WaveformActions& actions, QObject* parent);

    const MeasurementCursors& cursors() const { return m_cursors; }
    const CursorScale& scale() const { return m_scale; }

    void save(WaveformClientPreset& preset) const;
    /// As far as the preset has it; what it says of settings is theirs.
    void restore(const WaveformClientPreset& preset);

public slots:
    /// Of the pair that is shown.
    void moveTo(MeasurementCursors::Cursor cursor, int position);
    void setReadOutCorner(Qt::Corner corner);

signals:
    void changed();

private:
    void setPercentReference(int level);
    void update();

    const WaveformActions& m_actions;
    MeasurementCursors m_cursors;
    CursorScale m_scale;
};
