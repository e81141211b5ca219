#include "instruments/waveform/WaveformConnectionBuilder.h"

#include "datacore/ElementPaths.h"
#include "gui/control/Setting.h"
#include "instruments/waveform/UserMarkerSettings.h"
#include "instruments/waveform/Waveform.h"

using ServerCommon::DatacoreTree;

namespace {

/// Both ways, and what the setting shows of the way between.
template<typename Slot, typename Signal, typename Setter>
void connectSetting(const DatacoreLink& link, Waveform* window, Slot slot, Signal signal, Setter setter,
                    Setting* setting)
{
    link.toWindow(window, slot);
    link.fromWindow(window, signal, setter);
    link.informs(setting);
}

} // namespace

void WaveformConnectionBuilder::accessClientDatacoresFromRegistryByPath()
{
    accessWaveform();
    accessInput();
}

void WaveformConnectionBuilder::accessWaveform()
{
    linkTo(m_waveformFilter, ElementPaths::Waveform::kFilter, DatacoreTree::Configuration);
    linkTo(m_waveformBrightness, ElementPaths::Waveform::kBrightness, DatacoreTree::Configuration);
    linkTo(m_waveformGamma, ElementPaths::Waveform::kGamma, DatacoreTree::Configuration);
    linkTo(m_waveformPersistenceAttack, ElementPaths::Waveform::kPersistenceAttack,
           DatacoreTree::Configuration);
    linkTo(m_waveformPersistenceDecay, ElementPaths::Waveform::kPersistenceDecay,
           DatacoreTree::Configuration);
    linkTo(m_waveformSingleLineMode, ElementPaths::Waveform::kSingleLineMode, DatacoreTree::Configuration);
    linkTo(m_waveformVerticalMagnification, ElementPaths::Waveform::kVerticalMagnification,
           DatacoreTree::Configuration);
    linkTo(m_waveformVerticalPosition, ElementPaths::Waveform::kVerticalPosition,
           DatacoreTree::Configuration);
    linkTo(m_waveformHorizontalMagnification, ElementPaths::Waveform::kHorizontalMagnification,
           DatacoreTree::Configuration);
    linkTo(m_waveformHorizontalPosition, ElementPaths::Waveform::kHorizontalPosition,
           DatacoreTree::Configuration);
    linkTo(m_waveformDisplayMode, ElementPaths::Waveform::kDisplayMode, DatacoreTree::Configuration);
    linkTo(m_waveformPresentationMode, ElementPaths::Waveform::kPresentationMode,
           DatacoreTree::Configuration);
    linkTo(m_waveformColourMode, ElementPaths::Waveform::kColourMode, DatacoreTree::Configuration);
    linkTo(m_waveformFullWidthMode, ElementPaths::Waveform::kFullWidthMode, DatacoreTree::Configuration);
    linkTo(m_waveformOnVideoLoss, ElementPaths::Waveform::kOnVideoLoss, DatacoreTree::Configuration);
    linkTo(m_waveformFullRangeMode, ElementPaths::Waveform::kFullRangeMode, DatacoreTree::Configuration);
    linkTo(m_waveformVerticalScaleMode, ElementPaths::Waveform::kVerticalScaleMode,
           DatacoreTree::Configuration);
    linkTo(m_waveformVerticalNitsScaleMode, ElementPaths::Waveform::kVerticalNitsScaleMode,
           DatacoreTree::Configuration);
    linkTo(m_waveformHorizontalScaleMode, ElementPaths::Waveform::kHorizontalScaleMode,
           DatacoreTree::Configuration);
    linkTo(m_waveformSLog3Mode, ElementPaths::Waveform::kSLog3Mode, DatacoreTree::Configuration);
    linkTo(m_waveformUserMarkerLumaRgbEnable, ElementPaths::Waveform::kUserMarkerLumaRgbEnable,
           DatacoreTree::Configuration);
    linkTo(m_waveformUserMarkerCbCrEnable, ElementPaths::Waveform::kUserMarkerCbCrEnable,
           DatacoreTree::Configuration);
    linkTo(m_waveformUserMarkerLumaRgb1, ElementPaths::Waveform::kUserMarkerLumaRgb1,
           DatacoreTree::Configuration);
    linkTo(m_waveformUserMarkerLumaRgb2, ElementPaths::Waveform::kUserMarkerLumaRgb2,
           DatacoreTree::Configuration);
    linkTo(m_waveformUserMarkerCbCr1, ElementPaths::Waveform::kUserMarkerCbCr1, DatacoreTree::Configuration);
    linkTo(m_waveformUserMarkerCbCr2, ElementPaths::Waveform::kUserMarkerCbCr2, DatacoreTree::Configuration);
    linkTo(m_waveformCustomDisplayMode, ElementPaths::Waveform::kCustomDisplayMode,
           DatacoreTree::Configuration);
    linkTo(m_waveformBlenderGains, ElementPaths::Waveform::kBlenderGains, DatacoreTree::Configuration);
    linkTo(m_wantPicture, ElementPaths::WaveformCommands::kWantPicture, DatacoreTree::Command);
}

void WaveformConnectionBuilder::accessInput()
{
    linkTo(m_payloadIdColourimetryOverride, ElementPaths::PayloadIdOverride::kColourimetry,
           DatacoreTree::Configuration);
    linkTo(m_payloadIdColourimetryOverrideEnable, ElementPaths::PayloadIdOverride::kColourimetryEnable,
           DatacoreTree::Configuration);
    linkTo(m_payloadIdTransferCurveOverride, ElementPaths::PayloadIdOverride::kTransferCurve,
           DatacoreTree::Configuration);
    linkTo(m_payloadIdTransferCurveOverrideEnable, ElementPaths::PayloadIdOverride::kTransferCurveEnable,
           DatacoreTree::Configuration);
    linkTo(m_subImageMappingOverride, ElementPaths::PayloadIdOverride::kSubImageMapping,
           DatacoreTree::Configuration);
    linkTo(m_subImageMappingOverrideEnable, ElementPaths::PayloadIdOverride::kSubImageMappingEnable,
           DatacoreTree::Configuration);
    linkTo(m_pictureCursorPosition, ElementPaths::PictureCursor::kPosition, DatacoreTree::Configuration);
    linkTo(m_analyserMode, ElementPaths::Analyser::kMode, DatacoreTree::Configuration);
    linkTo(m_requested2110VideoFlows, ElementPaths::Ip2110Input::kRequestedVideoFlows,
           DatacoreTree::Configuration);
    linkTo(m_ip20227Mode, ElementPaths::Ip2110Input::kIp20227Mode, DatacoreTree::Configuration);
    linkTo(m_activeSdiStandard, ElementPaths::SdiInputStatus::kActiveStandard, DatacoreTree::Status);
    linkTo(m_pictureFormat, ElementPaths::SdiInputStatus::kPictureFormat, DatacoreTree::Status);
    linkTo(m_active2110Standard, ElementPaths::Ip2110InputStatus::kActiveStandard, DatacoreTree::Status);
    linkTo(m_ip2110VideoLoss, ElementPaths::Ip2110InputStatus::kVideoLoss, DatacoreTree::Status);
}

void WaveformConnectionBuilder::connectWaveformWidgetGroupToDatacores(Waveform* window) const
{
    connectTrace(window);
    connectScales(window);
    connectUserMarkers(window);
    connectLists(window);
    connectInput(window);
    connectOverrides(window);
    m_wantPicture.fromWindow(window, &Waveform::toCommandcore_wantPicture, &ClientDatacore::setDataSize);
    requestUtilisedDatacoresPopulateConnectedGuiItems();
}

void WaveformConnectionBuilder::connectTrace(Waveform* window) const
{
    connectSetting(m_waveformFilter, window, &Waveform::fromConfigCoreWaveformFilterUpdated,
                   &Waveform::toConfigCoreWaveformFilter, &ClientDatacore::setDataUint,
                   window->actions().filter);
    connectSetting(m_waveformBrightness, window, &Waveform::fromConfigCoreWaveformBrightnessUpdated,
                   &Waveform::toConfigCoreWaveformBrightness, &ClientDatacore::setDataDouble,
                   window->actions().brightness);
    connectSetting(m_waveformGamma, window, &Waveform::fromConfigCoreWaveformGammaUpdated,
                   &Waveform::toConfigCoreWaveformGamma, &ClientDatacore::setDataDouble,
                   window->actions().gamma);
    connectSetting(m_waveformPersistenceAttack, window,
                   &Waveform::fromConfigCoreWaveformPersistenceAttackUpdated,
                   &Waveform::toConfigCoreWaveformPersistenceAttack, &ClientDatacore::setDataDouble,
                   window->actions().persistenceAttack);
    connectSetting(m_waveformPersistenceDecay, window,
                   &Waveform::fromConfigCoreWaveformPersistenceDecayUpdated,
                   &Waveform::toConfigCoreWaveformPersistenceDecay, &ClientDatacore::setDataDouble,
                   window->actions().persistence);
    connectSetting(m_waveformSingleLineMode, window, &Waveform::fromConfigCoreWaveformSingleLineModeUpdated,
                   &Waveform::toConfigCoreWaveformSingleLineMode, &ClientDatacore::setDataBool,
                   window->actions().singleLine);
    connectSetting(m_waveformVerticalMagnification, window,
                   &Waveform::fromConfigCoreWaveformVerticalMagnificationUpdated,
                   &Waveform::toConfigCoreWaveformVerticalMagnification, &ClientDatacore::setDataDouble,
                   window->actions().verticalMagnification);
    connectSetting(m_waveformVerticalPosition, window,
                   &Waveform::fromConfigCoreWaveformVerticalPositionUpdated,
                   &Waveform::toConfigCoreWaveformVerticalPosition, &ClientDatacore::setDataDouble,
                   window->actions().verticalPosition);
    connectSetting(m_waveformHorizontalMagnification, window,
                   &Waveform::fromConfigCoreWaveformHorizontalMagnificationUpdated,
                   &Waveform::toConfigCoreWaveformHorizontalMagnification, &ClientDatacore::setDataDouble,
                   window->actions().horizontalMagnification);
    connectSetting(m_waveformHorizontalPosition, window,
                   &Waveform::fromConfigCoreWaveformHorizontalPositionUpdated,
                   &Waveform::toConfigCoreWaveformHorizontalPosition, &ClientDatacore::setDataDouble,
                   window->actions().horizontalPosition);
    connectSetting(m_waveformColourMode, window, &Waveform::fromConfigCoreWaveformColourModeUpdated,
                   &Waveform::toConfigCoreWaveformColourMode, &ClientDatacore::setDataUint,
                   window->actions().colourMode);
}

void WaveformConnectionBuilder::connectScales(Waveform* window) const
{
    connectSetting(m_waveformDisplayMode, window, &Waveform::fromConfigCoreWaveformDisplayModeUpdated,
                   &Waveform::toConfigCoreWaveformDisplayMode, &ClientDatacore::setDataUint,
                   window->actions().displayMode);
    connectSetting(m_waveformPresentationMode, window,
                   &Waveform::fromConfigCoreWaveformPresentationModeUpdated,
                   &Waveform::toConfigCoreWaveformPresentationMode, &ClientDatacore::setDataUint,
                   window->actions().presentation);
    connectSetting(m_waveformFullWidthMode, window, &Waveform::fromConfigCoreWaveformFullWidthModeUpdated,
                   &Waveform::toConfigCoreWaveformFullWidthMode, &ClientDatacore::setDataBool,
                   window->actions().fullWidth);
    connectSetting(m_waveformOnVideoLoss, window, &Waveform::fromConfigCoreWaveformOnVideoLossUpdated,
                   &Waveform::toConfigCoreWaveformOnVideoLoss, &ClientDatacore::setDataUint,
                   window->actions().onVideoLoss);
    connectSetting(m_waveformFullRangeMode, window, &Waveform::fromConfigCoreWaveformFullRangeModeUpdated,
                   &Waveform::toConfigCoreWaveformFullRangeMode, &ClientDatacore::setDataUint,
                   window->actions().fullRange);
    connectSetting(m_waveformVerticalScaleMode, window,
                   &Waveform::fromConfigCoreWaveformVerticalScaleModeUpdated,
                   &Waveform::toConfigCoreWaveformVerticalScaleMode, &ClientDatacore::setDataUint,
                   window->actions().verticalScale);
    connectSetting(m_waveformVerticalNitsScaleMode, window,
                   &Waveform::fromConfigCoreWaveformVerticalNitsScaleModeUpdated,
                   &Waveform::toConfigCoreWaveformVerticalNitsScaleMode, &ClientDatacore::setDataUint,
                   window->actions().nitsSide);
    connectSetting(m_waveformHorizontalScaleMode, window,
                   &Waveform::fromConfigCoreWaveformHorizontalScaleModeUpdated,
                   &Waveform::toConfigCoreWaveformHorizontalScaleMode, &ClientDatacore::setDataUint,
                   window->actions().horizontalScale);
    connectSetting(m_waveformSLog3Mode, window, &Waveform::fromConfigCoreWaveformSLog3ModeUpdated,
                   &Waveform::toConfigCoreWaveformSLog3Mode, &ClientDatacore::setDataUint,
                   window->actions().sLog3);
}

void WaveformConnectionBuilder::connectUserMarkers(Waveform* window) const
{
    connectSetting(m_waveformUserMarkerLumaRgbEnable, window,
                   &Waveform::fromConfigCoreWaveformUserMarkerLumaRgbEnableUpdated,
                   &Waveform::toConfigCoreWaveformUserMarkerLumaRgbEnable, &ClientDatacore::setDataBool,
                   window->actions().userMarkers->lumaRgbEnable());
    connectSetting(m_waveformUserMarkerCbCrEnable, window,
                   &Waveform::fromConfigCoreWaveformUserMarkerCbCrEnableUpdated,
                   &Waveform::toConfigCoreWaveformUserMarkerCbCrEnable, &ClientDatacore::setDataBool,
                   window->actions().userMarkers->cbCrEnable());
    connectSetting(m_waveformUserMarkerLumaRgb1, window,
                   &Waveform::fromConfigCoreWaveformUserMarkerLumaRgb1Updated,
                   &Waveform::toConfigCoreWaveformUserMarkerLumaRgb1, &ClientDatacore::setDataDouble,
                   window->actions().userMarkers->setting(UserMarkerSettings::LumaRgb1));
    connectSetting(m_waveformUserMarkerLumaRgb2, window,
                   &Waveform::fromConfigCoreWaveformUserMarkerLumaRgb2Updated,
                   &Waveform::toConfigCoreWaveformUserMarkerLumaRgb2, &ClientDatacore::setDataDouble,
                   window->actions().userMarkers->setting(UserMarkerSettings::LumaRgb2));
    connectSetting(m_waveformUserMarkerCbCr1, window, &Waveform::fromConfigCoreWaveformUserMarkerCbCr1Updated,
                   &Waveform::toConfigCoreWaveformUserMarkerCbCr1, &ClientDatacore::setDataDouble,
                   window->actions().userMarkers->setting(UserMarkerSettings::CbCr1));
    connectSetting(m_waveformUserMarkerCbCr2, window, &Waveform::fromConfigCoreWaveformUserMarkerCbCr2Updated,
                   &Waveform::toConfigCoreWaveformUserMarkerCbCr2, &ClientDatacore::setDataDouble,
                   window->actions().userMarkers->setting(UserMarkerSettings::CbCr2));
}

void WaveformConnectionBuilder::connectLists(Waveform* window) const
{
    const WaveformActions& actions = window->actions();
    m_waveformCustomDisplayMode.toWindow(window, &Waveform::fromConfigCoreWaveformCustomDisplayModeUpdated);
    m_waveformCustomDisplayMode.fromWindow(window, &Waveform::toConfigCoreWaveformCustomDisplayMode,
                                           &ClientDatacore::setDataStringList);
    m_waveformBlenderGains.toWindow(window, &Waveform::fromConfigCoreWaveformBlenderGainsUpdated);
    m_waveformBlenderGains.fromWindow(window, &Waveform::toConfigCoreWaveformBlenderGains,
                                      &ClientDatacore::setDataStringList);
    for (std::size_t i = 0; i < actions.gains.size(); ++i) {
        m_waveformCustomDisplayMode.informs(actions.customChannels[i]);
        m_waveformBlenderGains.informs(actions.gains[i]);
    }
    m_pictureCursorPosition.toWindow(window, &Waveform::fromConfigCorePictureCursorPositionUpdated);
    m_pictureCursorPosition.fromWindow(window, &Waveform::toConfigCorePictureCursorPosition,
                                       &ClientDatacore::setDataPoint);
    m_pictureCursorPosition.informs(actions.lineNumber);
    m_pictureCursorPosition.informs(actions.pixelNumber);
}

void WaveformConnectionBuilder::connectInput(Waveform* window) const
{
    m_analyserMode.toWindow(window, &Waveform::fromConfigCoreAnalyserModeUpdated);
    m_requested2110VideoFlows.toWindow(window, &Waveform::fromConfigCoreRequested2110VideoFlowsUpdated);
    m_ip20227Mode.toWindow(window, &Waveform::fromConfigCoreIp20227ModeUpdated);
    m_activeSdiStandard.toWindow(window, &Waveform::fromStatusCoreActiveSdiStandardUpdated);
    m_pictureFormat.toWindow(window, &Waveform::fromStatusCorePictureFormatUpdated);
    m_active2110Standard.toWindow(window, &Waveform::fromStatusCoreActive2110StandardUpdated);
    m_ip2110VideoLoss.toWindow(window, &Waveform::fromStatusCore2110VideoLossUpdated);
}

void WaveformConnectionBuilder::connectOverrides(Waveform* window) const
{
    connectSetting(m_payloadIdColourimetryOverride, window,
                   &Waveform::fromConfigCorePayloadIdColourimetryOverrideUpdated,
                   &Waveform::toConfigCorePayloadIdColourimetryOverride, &ClientDatacore::setDataUint,
                   window->actions().colourimetry);
    connectSetting(m_payloadIdColourimetryOverrideEnable, window,
                   &Waveform::fromConfigCorePayloadIdColourimetryOverrideEnableUpdated,
                   &Waveform::toConfigCorePayloadIdColourimetryOverrideEnable, &ClientDatacore::setDataBool,
                   window->actions().colourimetryEnable);
    connectSetting(m_payloadIdTransferCurveOverride, window,
                   &Waveform::fromConfigCorePayloadIdTransferCurveOverrideUpdated,
                   &Waveform::toConfigCorePayloadIdTransferCurveOverride, &ClientDatacore::setDataUint,
                   window->actions().transferCurve);
    connectSetting(m_payloadIdTransferCurveOverrideEnable, window,
                   &Waveform::fromConfigCorePayloadIdTransferCurveOverrideEnableUpdated,
                   &Waveform::toConfigCorePayloadIdTransferCurveOverrideEnable, &ClientDatacore::setDataBool,
                   window->actions().transferCurveEnable);
    connectSetting(m_subImageMappingOverride, window, &Waveform::fromConfigCoreSubImageMappingOverrideUpdated,
                   &Waveform::toConfigCoreSubImageMappingOverride, &ClientDatacore::setDataUint,
                   window->actions().subImageMapping);
    connectSetting(m_subImageMappingOverrideEnable, window,
                   &Waveform::fromConfigCoreSubImageMappingOverrideEnableUpdated,
                   &Waveform::toConfigCoreSubImageMappingOverrideEnable, &ClientDatacore::setDataBool,
                   window->actions().subImageMappingEnable);
}
