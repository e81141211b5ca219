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
    namespace Paths = ElementPaths::Waveform;
    constexpr auto kTree = DatacoreTree::Configuration;
    linkTo(m_waveformFilter, Paths::kFilter, kTree);
    linkTo(m_waveformBrightness, Paths::kBrightness, kTree);
    linkTo(m_waveformGamma, Paths::kGamma, kTree);
    linkTo(m_waveformPersistenceAttack, Paths::kPersistenceAttack, kTree);
    linkTo(m_waveformPersistenceDecay, Paths::kPersistenceDecay, kTree);
    linkTo(m_waveformSingleLineMode, Paths::kSingleLineMode, kTree);
    linkTo(m_waveformVerticalMagnification, Paths::kVerticalMagnification, kTree);
    linkTo(m_waveformVerticalPosition, Paths::kVerticalPosition, kTree);
    linkTo(m_waveformHorizontalMagnification, Paths::kHorizontalMagnification, kTree);
    linkTo(m_waveformHorizontalPosition, Paths::kHorizontalPosition, kTree);
    linkTo(m_waveformDisplayMode, Paths::kDisplayMode, kTree);
    linkTo(m_waveformPresentationMode, Paths::kPresentationMode, kTree);
    linkTo(m_waveformColourMode, Paths::kColourMode, kTree);
    linkTo(m_waveformFullWidthMode, Paths::kFullWidthMode, kTree);
    linkTo(m_waveformOnVideoLoss, Paths::kOnVideoLoss, kTree);
    linkTo(m_waveformFullRangeMode, Paths::kFullRangeMode, kTree);
    linkTo(m_waveformVerticalScaleMode, Paths::kVerticalScaleMode, kTree);
    linkTo(m_waveformVerticalNitsScaleMode, Paths::kVerticalNitsScaleMode, kTree);
    linkTo(m_waveformHorizontalScaleMode, Paths::kHorizontalScaleMode, kTree);
    linkTo(m_waveformSLog3Mode, Paths::kSLog3Mode, kTree);
    linkTo(m_waveformUserMarkerLumaRgbEnable, Paths::kUserMarkerLumaRgbEnable, kTree);
    linkTo(m_waveformUserMarkerCbCrEnable, Paths::kUserMarkerCbCrEnable, kTree);
    linkTo(m_waveformUserMarkerLumaRgb1, Paths::kUserMarkerLumaRgb1, kTree);
    linkTo(m_waveformUserMarkerLumaRgb2, Paths::kUserMarkerLumaRgb2, kTree);
    linkTo(m_waveformUserMarkerCbCr1, Paths::kUserMarkerCbCr1, kTree);
    linkTo(m_waveformUserMarkerCbCr2, Paths::kUserMarkerCbCr2, kTree);
    linkTo(m_waveformCustomDisplayMode, Paths::kCustomDisplayMode, kTree);
    linkTo(m_waveformBlenderGains, Paths::kBlenderGains, kTree);
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
