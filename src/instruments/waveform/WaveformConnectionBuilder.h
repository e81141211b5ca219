#pragma once

#include "datacore/DatacoreConnectionBuilderBase.h"

class Setting;
class Waveform;

/// Connects the waveform with its settings, and with what the input is.
class WaveformConnectionBuilder : public DatacoreConnectionBuilderBase {
    Q_OBJECT
public:
    using DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase;

    void accessClientDatacoresFromRegistryByPath() override;
    void connectWaveformWidgetGroupToDatacores(Waveform* window) const;

private:
    void accessWaveform();
    void accessInput();
    void connectTrace(Waveform* window) const;
    void connectScales(Waveform* window) const;
    void connectUserMarkers(Waveform* window) const;
    void connectLists(Waveform* window) const;
    void connectInput(Waveform* window) const;
    void connectOverrides(Waveform* window) const;

    DatacoreLink m_waveformFilter;
    DatacoreLink m_waveformBrightness;
    DatacoreLink m_waveformGamma;
    DatacoreLink m_waveformPersistenceAttack;
    DatacoreLink m_waveformPersistenceDecay;
    DatacoreLink m_waveformSingleLineMode;
    DatacoreLink m_waveformVerticalMagnification;
    DatacoreLink m_waveformVerticalPosition;
    DatacoreLink m_waveformHorizontalMagnification;
    DatacoreLink m_waveformHorizontalPosition;
    DatacoreLink m_waveformDisplayMode;
    DatacoreLink m_waveformPresentationMode;
    DatacoreLink m_waveformColourMode;
    DatacoreLink m_waveformFullWidthMode;
    DatacoreLink m_waveformOnVideoLoss;
    DatacoreLink m_waveformFullRangeMode;
    DatacoreLink m_waveformVerticalScaleMode;
    DatacoreLink m_waveformVerticalNitsScaleMode;
    DatacoreLink m_waveformHorizontalScaleMode;
    DatacoreLink m_waveformSLog3Mode;
    DatacoreLink m_waveformUserMarkerLumaRgbEnable;
    DatacoreLink m_waveformUserMarkerCbCrEnable;
    DatacoreLink m_payloadIdColourimetryOverride;
    DatacoreLink m_payloadIdColourimetryOverrideEnable;
    DatacoreLink m_payloadIdTransferCurveOverride;
    DatacoreLink m_payloadIdTransferCurveOverrideEnable;
    DatacoreLink m_subImageMappingOverride;
    DatacoreLink m_subImageMappingOverrideEnable;
    DatacoreLink m_waveformUserMarkerLumaRgb1;
    DatacoreLink m_waveformUserMarkerLumaRgb2;
    DatacoreLink m_waveformUserMarkerCbCr1;
    DatacoreLink m_waveformUserMarkerCbCr2;
    DatacoreLink m_waveformCustomDisplayMode;
    DatacoreLink m_waveformBlenderGains;
    DatacoreLink m_pictureCursorPosition;
    DatacoreLink m_analyserMode;
    DatacoreLink m_requested2110VideoFlows;
    DatacoreLink m_ip20227Mode;
    DatacoreLink m_activeSdiStandard;
    DatacoreLink m_pictureFormat;
    DatacoreLink m_active2110Standard;
    DatacoreLink m_ip2110VideoLoss;
    DatacoreLink m_wantPicture;
};
