#pragma once

#include "gui/control/Setting.h"

#include <array>

class SettingList;
class UserMarkerSettings;

/// What of a waveform can be set, in the order of its menu.
struct WaveformActions {
    /// Adds them to the list of the window.
    explicit WaveformActions(SettingList& list);

    UserMarkerSettings* userMarkers;
    Setting* verticalScale;
    Setting* horizontalScale;
    Setting* displayMode;
    std::array<Setting*, 4> customChannels;
    Setting* presentation;
    Setting* fullWidth;
    Setting* nitsSide;
    Setting* singleLine;
    Setting* lineNumber;
    Setting* pixelNumber;
    Setting* pictureCursor;
    Setting* referenceMarker;
    Setting* peakWhite;
    Setting* sLog3;
    Setting* filter;
    Setting* zoomPan;
    Setting* horizontalMagnification;
    Setting* horizontalPosition;
    Setting* verticalMagnification;
    Setting* verticalPosition;
    Setting* brightness;
    Setting* persistence;
    Setting* gamma;
    Setting* persistenceAttack;
    std::array<Setting*, 4> gains;
    Setting* restoreLevels;
    Setting* colourMode;
    Setting* onVideoLoss;
    Setting* fullRange;
    Setting* cursors;
    Setting* cursorAxis;
    Setting* cursorValues;
    Setting* cursorAdjustment;
    Setting* cursorScaleX;
    Setting* cursorScaleY;
    Setting* refPosition;
    Setting* deltaPosition;
    Setting* differential;
    Setting* setReference;
    Setting* resetReference;
    Setting* holdTrace;
    Setting* showTrace;
    Setting* clearTrace;
    Setting* colourimetryEnable;
    Setting* colourimetry;
    Setting* transferCurveEnable;
    Setting* transferCurve;
    Setting* subImageMappingEnable;
    Setting* subImageMapping;

private:
    void addScales(SettingList& list);
    void addLine(SettingList& list);
    void addMarkers(SettingList& list);
    void addTrace(SettingList& list);
    void addSignal(SettingList& list);
    void addCursors(SettingList& list);
    void addReferenceTrace(SettingList& list);
    void addOverrides(SettingList& list);
};

/// The value of a choice, where the numbers from 0 to @p last stand for the enumeration; its first one where
/// there is no value or another.
template<typename Enumeration>
Enumeration choiceOf(const Setting& setting, Enumeration last)
{
    bool isNumber = false;
    const unsigned number = setting.value().toUInt(&isNumber);
    const bool isKnown = isNumber && setting.isUsable() && number <= static_cast<unsigned>(last);
    return isKnown ? static_cast<Enumeration>(number) : Enumeration{};
}
