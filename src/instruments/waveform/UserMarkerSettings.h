#pragma once

#include "gui/control/Setting.h"
#include "instruments/waveform/WaveformMarkers.h"
#include "instruments/waveform/WaveformScale.h"

#include <QObject>

#include <array>

class SettingList;

/// The settings of the four markers of the user. Their elements hold percents of the left scale; what the
/// user sees and enters is in the unit of the scale of now, and changes with that and with the bit depth.
class UserMarkerSettings : public QObject {
    Q_OBJECT
public:
    enum Marker { LumaRgb1, LumaRgb2, CbCr1, CbCr2 };
    static constexpr int kMarkers = 4;

    UserMarkerSettings(SettingList& list, QObject* parent);

    Setting* lumaRgbEnable() const { return m_lumaRgbEnable; }
    Setting* cbCrEnable() const { return m_cbCrEnable; }
    Setting* setting(Marker marker) const { return m_settings[static_cast<std::size_t>(marker)]; }

    /// What the element of a marker says.
    void fromElement(Marker marker, const QStringList& values, const QStringList& reasons, bool active);
    /// The unit of the vertical scale, or the depth or range of the codes, is another.
    void updateUserMarkerAfterStandardChange(const WaveformDisplay& display);

    /// From the unit of now to percent of the left scale.
    double userMarkerValueToPercentage(Marker marker, double value) const;

    WaveformMarkers::UserMarkers markers() const;

signals:
    void chosen(UserMarkerSettings::Marker marker, double percent);

private:
    static bool isCbCr(Marker marker) { return marker >= CbCr1; }
    const WaveformScale& scaleOf(Marker marker) const
    {
        return isCbCr(marker) ? m_cbCrScale : m_lumaRgbScale;
    }
    void show(Marker marker);
    WaveformMarkers::UserMarker markerOf(Marker marker, QRgb colour) const;

    WaveformScale m_lumaRgbScale;
    WaveformScale m_cbCrScale;
    Setting* const m_lumaRgbEnable;
    std::array<Setting*, kMarkers> m_settings{};
    Setting* m_cbCrEnable = nullptr;
    std::array<ElementState, kMarkers> m_elements;
};
