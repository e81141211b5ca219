#include "instruments/Catalogue.h"

#include "instruments/ConnectedContent.h"
#include "instruments/InstrumentServices.h"
#include "instruments/audiometering/AudioMetering.h"
#include "instruments/audiometering/AudioMeteringConnectionBuilder.h"
#include "instruments/datacorebrowser/DatacoreBrowser.h"
#include "instruments/diagnostics/Diagnostics.h"
#include "instruments/eventlog/EventLog.h"
#include "instruments/inputstatistics/InputStatistics.h"
#include "instruments/inputstatistics/InputStatisticsConnectionBuilder.h"
#include "instruments/signalstatus/SignalStatus.h"
#include "instruments/signalstatus/SignalStatusConnectionBuilder.h"
#include "instruments/waveform/Waveform.h"
#include "instruments/waveform/WaveformConnectionBuilder.h"

#include "gui/framework/SupportedSubWindows.h"

#include <QCoreApplication>

#include <string_view>

namespace {

using Factory = SupportedSubWindow::Factory;

/// By titles. The numbers stay with them, whatever the order of the launcher.
constexpr struct {
    const char* title;
    NumberedCommand command;
} kCommands[] = {
    {"Waveform", NumberedCommand::OpenWaveform},
    {"Signal Status", NumberedCommand::OpenSignalStatus},
    {"Input Statistics", NumberedCommand::OpenInputStatistics},
    {"Audio Metering", NumberedCommand::OpenAudioMetering},
    {"Event Log", NumberedCommand::OpenEventLog},
    {"Datacore Browser", NumberedCommand::OpenDatacoreBrowser},
    {"Diagnostics", NumberedCommand::OpenDiagnostics},
};

std::optional<NumberedCommand> commandOf(std::string_view title)
{
    for (const auto& each : kCommands) {
        if (title == each.title)
            return each.command;
    }
    return std::nullopt;
}

/// Titles are saved in presets, too, and are the same in every language.
SupportedSubWindow kind(const char* title, QLatin1String className, WindowRole role, const char* group,
                        const char* icon, int maximumInstances, Factory makeContent)
{
    return {QString::fromLatin1(title),
            className,
            role,
            QCoreApplication::translate("Catalogue", group),
            QString::fromLatin1(icon),
            maximumInstances,
            {},
            std::move(makeContent),
            commandOf(title)};
}

} // namespace

void addInstruments(SupportedSubWindows& catalogue, const InstrumentServices& s)
{
    constexpr auto kInstrument = WindowRole::Instrument;
    constexpr auto kSystem = WindowRole::System;
    const Factory eventLog = [&s](WzSubWindow& window) { return new EventLog(&window, s.device, s.events); };
    const Factory browser = [&s](WzSubWindow& window) {
        return new DatacoreBrowser(&window, s.device, s.registry);
    };
    const Factory diagnostics = [&s](WzSubWindow& window) {
        return new Diagnostics(&window, s.device, s.figures);
    };
    // clang-format off
    catalogue.add(kind("Waveform", Waveform::kClassName, kInstrument, "Video", "waveform", 4, connectedContent(s, &WaveformConnectionBuilder::connectWaveformWidgetGroupToDatacores)));
    catalogue.add(kind("Signal Status", SignalStatus::kClassName, kInstrument, "Video", "video-status", 4, connectedContent(s, &SignalStatusConnectionBuilder::connectSignalStatusToDatacores)));
    catalogue.add(kind("Input Statistics", InputStatistics::kClassName, kInstrument, "Video", "timing", 4, connectedContent(s, &InputStatisticsConnectionBuilder::connectInputStatisticsToDatacores)));
    catalogue.add(kind("Audio Metering", AudioMetering::kClassName, kInstrument, "Audio", "audio-meters", 4, connectedContent(s, &AudioMeteringConnectionBuilder::connectAudioMeteringToDatacores)));
    catalogue.add(kind("Event Log", EventLog::kClassName, kSystem, "System", "event-log", 1, eventLog));
    catalogue.add(kind("Datacore Browser", DatacoreBrowser::kClassName, kSystem, "System", "datacore-browser", 16, browser));
    catalogue.add(kind("Diagnostics", Diagnostics::kClassName, kSystem, "System", "diagnostics", 1, diagnostics));
    // clang-format on
}
