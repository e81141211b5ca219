#pragma once

#include <QLatin1String>

#include <array>
#include <cstddef>

/// The elements of the instrument's trees, each named once: their paths below the root of their tree, grouped
/// by owner. The instrument that publishes an element, the builders that connect to it and the tests use
/// these constants.
namespace ElementPaths {

template<std::size_t Size>
constexpr QLatin1String path(const char (&text)[Size])
{
    return QLatin1String(text, static_cast<int>(Size) - 1);
}

/// Configuration: what is measured.
namespace SignalSource {
inline constexpr auto kName = path("signalSource/name");
}

/// Configuration: the source "tone", on all channels.
namespace ToneGenerator {
inline constexpr auto kFrequency = path("toneGenerator/frequency"); ///< Hz
inline constexpr auto kLevel = path("toneGenerator/level"); ///< dBFS
} // namespace ToneGenerator

/// Configuration: the pictures of sources that generate theirs.
namespace PatternGenerator {
inline constexpr auto kPattern = path("patternGenerator/pattern");
inline constexpr auto kVideoStandard = path("patternGenerator/videoStandard");
} // namespace PatternGenerator

/// Configuration: the source "file".
namespace MediaFile {
inline constexpr auto kPath = path("mediaFile/path"); ///< on the instrument's machine
inline constexpr auto kLoop = path("mediaFile/loop");
inline constexpr auto kPaused = path("mediaFile/paused");
} // namespace MediaFile

/// Configuration: the waveform, shared by all who look at it. Choices are numbers: the values of the
/// enumerations of WaveformTypes; the ranges of all others are in WaveformTypes::Limits.
namespace Waveform {
inline constexpr auto kFilter = path("waveform/filter");
inline constexpr auto kBrightness = path("waveform/brightness");
inline constexpr auto kGamma = path("waveform/gamma");
inline constexpr auto kPersistenceAttack = path("waveform/persistenceAttack");
inline constexpr auto kPersistenceDecay = path("waveform/persistenceDecay");
/// Whether only the line of the picture cursor is shown.
inline constexpr auto kSingleLineMode = path("waveform/singleLineMode");
inline constexpr auto kVerticalMagnification = path("waveform/verticalMagnification");
inline constexpr auto kVerticalPosition = path("waveform/verticalPosition");
inline constexpr auto kHorizontalMagnification = path("waveform/horizontalMagnification");
inline constexpr auto kHorizontalPosition = path("waveform/horizontalPosition");
inline constexpr auto kDisplayMode = path("waveform/displayMode");
/// An item for each of four channels: a WaveformTypes::Component, or WaveformTypes::kNoComponent.
inline constexpr auto kCustomDisplayMode = path("waveform/customDisplayMode");
inline constexpr auto kPresentationMode = path("waveform/presentationMode");
inline constexpr auto kColourMode = path("waveform/colourMode");
/// An item for each of four channels.
inline constexpr auto kBlenderGains = path("waveform/blenderGains");
inline constexpr auto kFullWidthMode = path("waveform/fullWidthMode");
inline constexpr auto kOnVideoLoss = path("waveform/onVideoLoss");
inline constexpr auto kFullRangeMode = path("waveform/fullRangeMode");
inline constexpr auto kVerticalScaleMode = path("waveform/verticalScaleMode");
inline constexpr auto kVerticalNitsScaleMode = path("waveform/verticalNitsScaleMode");
inline constexpr auto kHorizontalScaleMode = path("waveform/horizontalScaleMode");
inline constexpr auto kSLog3Mode = path("waveform/sLog3Mode");
// Markers stand at percents of the scale; both of a pair are shown or none.
inline constexpr auto kUserMarkerLumaRgbEnable = path("waveform/userMarkerLumaRgbEnable");
inline constexpr auto kUserMarkerLumaRgb1 = path("waveform/userMarkerLumaRgb1");
inline constexpr auto kUserMarkerLumaRgb2 = path("waveform/userMarkerLumaRgb2");
inline constexpr auto kUserMarkerCbCrEnable = path("waveform/userMarkerCbCrEnable");
inline constexpr auto kUserMarkerCbCr1 = path("waveform/userMarkerCbCr1");
inline constexpr auto kUserMarkerCbCr2 = path("waveform/userMarkerCbCr2");
} // namespace Waveform

/// Command: somebody looks at the waveform with a window whose content has this width and height. Said anew
/// every second as long as it is so; see WaveformTypes::Pictures.
namespace WaveformCommands {
inline constexpr auto kWantPicture = path("waveform/wantPicture");
}

/// Configuration: the pixel that the user has chosen, counted from 0 from the top left of the picture.
namespace PictureCursor {
inline constexpr auto kPosition = path("pictureCursor/position");
}

/// Configuration: what is taken for true in place of what the payload identifier says. Values are those of
/// Sdi::PayloadId, each followed only where it is enabled.
namespace PayloadIdOverride {
inline constexpr auto kColourimetry = path("payloadIdOverride/colourimetry");
inline constexpr auto kColourimetryEnable = path("payloadIdOverride/colourimetryEnable");
inline constexpr auto kTransferCurve = path("payloadIdOverride/transferCurve");
inline constexpr auto kTransferCurveEnable = path("payloadIdOverride/transferCurveEnable");
inline constexpr auto kSubImageMapping = path("payloadIdOverride/subImageMapping");
inline constexpr auto kSubImageMappingEnable = path("payloadIdOverride/subImageMappingEnable");
} // namespace PayloadIdOverride

/// Configuration: which input is measured, "SDI" or "IP 2110".
namespace Analyser {
inline constexpr auto kMode = path("analyser/mode");
}

/// Configuration: the network inputs.
namespace Ip2110Input {
/// The ST 2110-20 flows that shall be received.
inline constexpr auto kRequestedVideoFlows = path("ip2110Input/requestedVideoFlows");
/// Whether both networks of SMPTE ST 2022-7 are used.
inline constexpr auto kIp20227Mode = path("ip2110Input/ip20227Mode");
} // namespace Ip2110Input

/// Status: the pictures at the network inputs.
namespace Ip2110InputStatus {
inline constexpr auto kActiveStandard = path("ip2110Input/activeStandard");
inline constexpr auto kVideoLoss = path("ip2110Input/videoLoss");
} // namespace Ip2110InputStatus

/// Configuration: how the audio meters show it.
namespace AudioMetering {
inline constexpr auto kBallistics = path("audioMetering/ballistics");
inline constexpr auto kHatHoldTime = path("audioMetering/hatHoldTime");
inline constexpr auto kPpmScaleType = path("audioMetering/ppmScaleType");
} // namespace AudioMetering

/// Configuration: a text file on the instrument's machine with a name for each channel.
namespace ChannelNames {
inline constexpr auto kFile = path("channelNames/file");
}

/// Status: the names in it, one a channel.
namespace ChannelNamesStatus {
inline constexpr auto kNames = path("channelNames/names");
}

/// Status: what the audio channels carry.
namespace AudioContentStatus {
/// As AudioChannelContent::toItem() has it, one a channel.
inline constexpr auto kChannels = path("audioContent/channels");
/// The video line on which Dolby E frames begin, one item a pair, empty where there are none.
inline constexpr auto kDolbyELines = path("audioContent/dolbyELines");
/// The line on which they should begin.
inline constexpr auto kDolbyEIdealLine = path("audioContent/dolbyEIdealLine");
} // namespace AudioContentStatus

/// Status: what the instrument is.
namespace SystemStatus {
inline constexpr auto kSoftwareVersion = path("systemStatus/softwareVersion");
inline constexpr auto kConnectedClients = path("systemStatus/connectedClients");
/// What the instrument is set up to be, in words.
inline constexpr auto kCurrentSystemMode = path("systemStatus/currentSystemMode");
/// The modes that it can be set up to be.
inline constexpr auto kAvailableSystemModes = path("systemStatus/availableSystemModes");
/// What the instrument is fitted with: names of Velmora::Wz::Device.
inline constexpr auto kFittedFeatures = path("systemStatus/fittedFeatures");
/// Whether the screen has the touch panel that swiping needs.
inline constexpr auto kScreenSwipingSupported = path("systemStatus/screenSwipingSupported");
} // namespace SystemStatus

/// Configuration: what the instrument is to be.
namespace SystemMode {
inline constexpr auto kMode = path("systemMode/mode");
}

/// Status: the sensors of the machine.
namespace HealthStatus {
/// As HealthReading::toItems() has them.
inline constexpr auto kReadings = path("health/readings");
/// What is beyond its limit, one text each.
inline constexpr auto kAlarms = path("health/alarms");
} // namespace HealthStatus

/// Status: the clock of the instrument.
namespace SystemTimeStatus {
/// ISO 8601 with milliseconds, of the moment at which it was sent; every full minute, and to new clients.
inline constexpr auto kUtc = path("systemTime/utc");
inline constexpr auto kTimeZone = path("systemTime/timeZone"); ///< "Europe/Berlin"
/// Whether it is held to another clock.
inline constexpr auto kSynchronised = path("systemTime/synchronised");
} // namespace SystemTimeStatus

/// Command: the clock of the instrument.
namespace SystemTimeCommands {
inline constexpr auto kSetUtc = path("systemTime/setUtc"); ///< ISO 8601
}

/// Command: switches the instrument off, whatever the value.
namespace PowerCommands {
inline constexpr auto kPowerOff = path("power/powerOff");
}

/// Configuration: what is heard of the signal.
namespace AudioMonitor {
inline constexpr auto kChannelPair = path("audioMonitor/channelPair"); ///< counts from 1
inline constexpr auto kMuted = path("audioMonitor/muted");
inline constexpr auto kSoloChannel = path("audioMonitor/soloChannel"); ///< counts from 1; 0 for none
/// The channels that each side of the output mixes, one bit each; 0 for the pair's own channel.
inline constexpr auto kMixLeft = path("audioMonitor/mixLeft");
inline constexpr auto kMixRight = path("audioMonitor/mixRight");
} // namespace AudioMonitor

/// Status: where it is heard, or why it is not, in words.
namespace AudioMonitorStatus {
inline constexpr auto kOutput = path("audioMonitor/output");
}

/// Configuration: the pluggable network modules.
namespace Sfp {
inline constexpr auto kIpAddress = path("sfp/ipAddress"); ///< of a module for IP; empty for none
/// Which kind of module an instrument without any simulates: "None", "SDI" or "IP".
inline constexpr auto kSimulatedModule = path("sfp/simulatedModule");
} // namespace Sfp

/// Status: the pluggable network modules.
namespace SfpStatus {
inline constexpr auto kModules = path("sfp/modules"); ///< what is plugged in, in words, one text each
/// The name of a module for IP that has no address; empty when none lacks one.
inline constexpr auto kWithoutAddress = path("sfp/withoutAddress");
} // namespace SfpStatus

/// Status: what there is to measure.
namespace SignalSourceStatus {
inline constexpr auto kAvailableNames = path("signalSource/availableNames");
inline constexpr auto kAudioChannels = path("signalSource/audioChannels");
} // namespace SignalSourceStatus

/// Status: what can be generated.
namespace PatternGeneratorStatus {
inline constexpr auto kAvailablePatterns = path("patternGenerator/availablePatterns");
}

/// Status: the file that is played.
namespace MediaFileStatus {
inline constexpr auto kDuration = path("mediaFile/duration"); ///< seconds, 0 when unknown
}

/// Status: the pictures at the input.
namespace SdiInputStatus {
/// Without items when there is no signal, or pictures that no SDI standard has.
inline constexpr auto kActiveStandard = path("sdiInput/activeStandard");
/// What the pictures are in words, also those that no SDI standard has; "No Signal" without any.
inline constexpr auto kPictureFormat = path("sdiInput/pictureFormat");
} // namespace SdiInputStatus

/// Command: goes to a time in the file, in seconds.
namespace MediaFileCommands {
inline constexpr auto kSeek = path("mediaFile/seek");
}

/// Persistent configuration: the two Ethernet ports, each as an EthernetAddressValue.
namespace VelmEth {
inline constexpr std::array kAddresses{path("velmEth0/addresses"), path("velmEth1/addresses")};
}

/// Status: what the two Ethernet ports are set to, which is the last that was valid.
namespace VelmEthStatus {
inline constexpr std::array kAddresses{path("velmEth0/addresses"), path("velmEth1/addresses")};
}

/// Configuration: what the SDI outputs send.
namespace SdiOutput {
inline constexpr auto kVideoStandard = path("sdiOutput/videoStandard");
inline constexpr auto kTestPattern = path("sdiOutput/testPattern");
inline constexpr auto kGenerate = path("sdiOutput/generate");
} // namespace SdiOutput

/// Status: the generator behind the SDI outputs.
namespace SdiOutputStatus {
/// Whether nothing is sent.
inline constexpr auto kIdle = path("sdiOutput/idle");
/// What can be sent in the standard that is set.
inline constexpr auto kTestPatterns = path("sdiOutput/testPatterns");
} // namespace SdiOutputStatus

/// Persistent configuration: the drivers of the SDI outputs, by Types::OutputSpigot.
namespace SdiDriver {
/// The step of its gain with which it works.
inline constexpr std::array kGain{path("sdiDriverA/gain"), path("sdiDriverB/gain"), path("sdiDriverC/gain"),
                                  path("sdiDriverD/gain")};
/// As DriverCharacteristics::toItems() has them; empty before the first calibration.
inline constexpr std::array kCharacteristics{
    path("sdiDriverA/characteristics"), path("sdiDriverB/characteristics"),
    path("sdiDriverC/characteristics"), path("sdiDriverD/characteristics")};
} // namespace SdiDriver

/// Status: the drivers of the SDI outputs.
namespace SdiDriverStatus {
/// mV peak to peak with the gain with which it works; inactive while nothing is sent.
inline constexpr std::array kAmplitude{path("sdiDriverA/amplitude"), path("sdiDriverB/amplitude"),
                                       path("sdiDriverC/amplitude"), path("sdiDriverD/amplitude")};
/// What was measured last for a client: output, step of the gain, mV peak to peak, how many were by now.
inline constexpr auto kMeasurement = path("sdiDriver/measurement");
/// What kind of drivers they are, in words.
inline constexpr auto kKind = path("sdiDriver/kind");
} // namespace SdiDriverStatus

/// Command: measures the amplitude of an output with a step of its gain: output, step.
namespace SdiDriverCommands {
inline constexpr auto kMeasure = path("sdiDriver/measure");
}

/// Command: the number of a command that the instrument carries out.
namespace CommandExecutor {
inline constexpr auto kExecute = path("commandExecutor/execute");
}

/// Command: each time it is written, whatever the value, the peak-hold hats fall.
namespace AudioMeteringCommands {
inline constexpr auto kResetPeakHold = path("audioMetering/resetPeakHold");
}

/// Status: how much the event log holds.
namespace LoggingStatus {
inline constexpr auto kKeptEvents = path("logging/keptEvents");
}

/// Status: the names of the presets that are kept for clients, an item each.
namespace ClientPresetsStatus {
inline constexpr auto kNames = path("clientPresets/names");
}

/// Command: each time it is written, whatever the value, the event log is emptied.
namespace LoggingCommands {
inline constexpr auto kResetEventLog = path("logging/resetEventLog");
}

} // namespace ElementPaths
