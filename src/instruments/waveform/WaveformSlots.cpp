#include "instruments/waveform/Waveform.h"

#include "instruments/waveform/UserMarkerSettings.h"

// What the elements say: a setting takes it in, and tells that it has changed.

void Waveform::fromConfigCoreWaveformFilterUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.filter->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformBrightnessUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.brightness->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformGammaUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.gamma->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformPersistenceAttackUpdated(QStringList values, QStringList reasons,
                                                              bool active)
{
    m_actions.persistenceAttack->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformPersistenceDecayUpdated(QStringList values, QStringList reasons,
                                                             bool active)
{
    m_actions.persistence->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformSingleLineModeUpdated(QStringList values, QStringList reasons,
                                                           bool active)
{
    m_actions.singleLine->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformVerticalMagnificationUpdated(QStringList values, QStringList reasons,
                                                                  bool active)
{
    m_actions.verticalMagnification->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformVerticalPositionUpdated(QStringList values, QStringList reasons,
                                                             bool active)
{
    m_actions.verticalPosition->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformHorizontalMagnificationUpdated(QStringList values, QStringList reasons,
                                                                    bool active)
{
    m_actions.horizontalMagnification->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformHorizontalPositionUpdated(QStringList values, QStringList reasons,
                                                               bool active)
{
    m_actions.horizontalPosition->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformDisplayModeUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.displayMode->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformPresentationModeUpdated(QStringList values, QStringList reasons,
                                                             bool active)
{
    m_actions.presentation->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformColourModeUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.colourMode->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformFullWidthModeUpdated(QStringList values, QStringList reasons,
                                                          bool active)
{
    m_fullWidth = {values, reasons, active};
    showFullWidth();
}

void Waveform::fromConfigCoreWaveformOnVideoLossUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.onVideoLoss->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformFullRangeModeUpdated(QStringList values, QStringList reasons,
                                                          bool active)
{
    m_actions.fullRange->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformVerticalScaleModeUpdated(QStringList values, QStringList reasons,
                                                              bool active)
{
    m_actions.verticalScale->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformVerticalNitsScaleModeUpdated(QStringList values, QStringList reasons,
                                                                  bool active)
{
    m_actions.nitsSide->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformHorizontalScaleModeUpdated(QStringList values, QStringList reasons,
                                                                bool active)
{
    m_actions.horizontalScale->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformSLog3ModeUpdated(QStringList values, QStringList reasons, bool active)
{
    m_actions.sLog3->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformUserMarkerLumaRgbEnableUpdated(QStringList values, QStringList reasons,
                                                                    bool active)
{
    m_actions.userMarkers->lumaRgbEnable()->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformUserMarkerCbCrEnableUpdated(QStringList values, QStringList reasons,
                                                                 bool active)
{
    m_actions.userMarkers->cbCrEnable()->fromElement(values, reasons, active);
}

void Waveform::fromConfigCorePayloadIdColourimetryOverrideUpdated(QStringList values, QStringList reasons,
                                                                  bool active)
{
    m_actions.colourimetry->fromElement(values, reasons, active);
}

void Waveform::fromConfigCorePayloadIdColourimetryOverrideEnableUpdated(QStringList values,
                                                                        QStringList reasons, bool active)
{
    m_actions.colourimetryEnable->fromElement(values, reasons, active);
}

void Waveform::fromConfigCorePayloadIdTransferCurveOverrideUpdated(QStringList values, QStringList reasons,
                                                                   bool active)
{
    m_actions.transferCurve->fromElement(values, reasons, active);
}

void Waveform::fromConfigCorePayloadIdTransferCurveOverrideEnableUpdated(QStringList values,
                                                                         QStringList reasons, bool active)
{
    m_actions.transferCurveEnable->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreSubImageMappingOverrideUpdated(QStringList values, QStringList reasons,
                                                            bool active)
{
    m_actions.subImageMapping->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreSubImageMappingOverrideEnableUpdated(QStringList values, QStringList reasons,
                                                                  bool active)
{
    m_actions.subImageMappingEnable->fromElement(values, reasons, active);
}

void Waveform::fromConfigCoreWaveformUserMarkerLumaRgb1Updated(QStringList values, QStringList reasons,
                                                               bool active)
{
    m_actions.userMarkers->fromElement(UserMarkerSettings::LumaRgb1, values, reasons, active);
}

void Waveform::fromConfigCoreWaveformUserMarkerLumaRgb2Updated(QStringList values, QStringList reasons,
                                                               bool active)
{
    m_actions.userMarkers->fromElement(UserMarkerSettings::LumaRgb2, values, reasons, active);
}

void Waveform::fromConfigCoreWaveformUserMarkerCbCr1Updated(QStringList values, QStringList reasons,
                                                            bool active)
{
    m_actions.userMarkers->fromElement(UserMarkerSettings::CbCr1, values, reasons, active);
}

void Waveform::fromConfigCoreWaveformUserMarkerCbCr2Updated(QStringList values, QStringList reasons,
                                                            bool active)
{
    m_actions.userMarkers->fromElement(UserMarkerSettings::CbCr2, values, reasons, active);
}

void Waveform::fromConfigCoreWaveformCustomDisplayModeUpdated(QStringList values, QStringList reasons,
                                                              bool active)
{
    for (std::size_t i = 0; i < m_actions.customChannels.size(); ++i)
        m_actions.customChannels[i]->fromElement(values.mid(static_cast<int>(i), 1), reasons, active);
}

void Waveform::fromConfigCoreWaveformBlenderGainsUpdated(QStringList values, QStringList reasons, bool active)
{
    for (std::size_t i = 0; i < m_actions.gains.size(); ++i)
        m_actions.gains[i]->fromElement(values.mid(static_cast<int>(i), 1), reasons, active);
}

void Waveform::fromConfigCorePictureCursorPositionUpdated(QStringList values, QStringList reasons,
                                                          bool active)
{
    m_cursorPosition = {values, reasons, active};
    showPictureCursor();
    updateDisplay();
}

void Waveform::fromConfigCoreAnalyserModeUpdated(QStringList values, QStringList reasons, bool active)
{
    m_analyserMode = {values, reasons, active};
    updateTransferCurve();
}

void Waveform::fromConfigCoreRequested2110VideoFlowsUpdated(QStringList values, QStringList reasons,
                                                            bool active)
{
    m_requestedFlows = {values, reasons, active};
    updateTitle();
}

void Waveform::fromConfigCoreIp20227ModeUpdated(QStringList values, QStringList reasons, bool active)
{
    m_ip20227Mode = {values, reasons, active};
    updateTitle();
}

void Waveform::fromStatusCoreActiveSdiStandardUpdated(QStringList values, QStringList reasons, bool active)
{
    m_sdiStandard = {values, reasons, active};
    updateTransferCurve();
}

void Waveform::fromStatusCorePictureFormatUpdated(QStringList values, QStringList reasons, bool active)
{
    m_pictureFormat = {values, reasons, active};
    updateTransferCurve();
}

void Waveform::fromStatusCoreActive2110StandardUpdated(QStringList values, QStringList reasons, bool active)
{
    m_ipStandard = {values, reasons, active};
    updateTransferCurve();
}

void Waveform::fromStatusCore2110VideoLossUpdated(QStringList values, QStringList reasons, bool active)
{
    m_ipVideoLoss = {values, reasons, active};
    updateTransferCurve();
}
