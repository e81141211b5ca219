#pragma once

#include <QLatin1String>

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
inline constexpr auto kIpAddress = path("sfp/ipAddress");
}

/// Status: the pluggable network modules.
namespace SfpStatus {
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

/// Command: each time it is written, whatever the value, the event log is emptied.
namespace LoggingCommands {
inline constexpr auto kResetEventLog = path("logging/resetEventLog");
}

} // namespace ElementPaths
