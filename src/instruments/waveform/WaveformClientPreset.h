#pragma once

#include "instruments/waveform/MeasurementCursors.h"
#include "presets/SettingsContentPreset.h"

#include <QJsonObject>

/// What a window of the waveform keeps for itself: how it measures, and a reference trace. All else belongs
/// to the instrument and is shared by its clients, so that loading a preset does not change it for others.
class WaveformClientPreset : public SettingsContentPreset {
public:
    static constexpr QLatin1String kClassName{"WaveformClientPreset", 20};

    using Axis = MeasurementCursors::Axis;
    using Cursor = MeasurementCursors::Cursor;

    WaveformClientPreset();
    explicit WaveformClientPreset(const SerialisableDataPacket& packet);

    /// In thousandths of a percent.
    void setCursorPosition(Axis axis, Cursor cursor, int position);
    bool containsCursorPosition(Axis axis, Cursor cursor) const;
    int getCursorPosition(Axis axis, Cursor cursor) const;

    void setPercentReference(int level);
    bool containsPercentReference() const;
    int getPercentReference() const;

    void setReadOutCorner(Qt::Corner corner);
    bool containsReadOutCorner() const;
    Qt::Corner getReadOutCorner() const;

    void setReferenceTrace(const QJsonObject& trace);
    bool containsReferenceTrace() const;
    QJsonObject getReferenceTrace() const;
};
