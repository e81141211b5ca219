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

/// Configuration: how the audio meters show it.
namespace AudioMetering {
inline constexpr auto kBallistics = path("audioMetering/ballistics");
inline constexpr auto kHatHoldTime = path("audioMetering/hatHoldTime");
} // namespace AudioMetering

/// Status: what the instrument is.
namespace SystemStatus {
inline constexpr auto kSoftwareVersion = path("systemStatus/softwareVersion");
inline constexpr auto kConnectedClients = path("systemStatus/connectedClients");
} // namespace SystemStatus

/// Status: what there is to measure.
namespace SignalSourceStatus {
inline constexpr auto kAvailableNames = path("signalSource/availableNames");
inline constexpr auto kAudioChannels = path("signalSource/audioChannels");
} // namespace SignalSourceStatus

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
