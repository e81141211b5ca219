#include "commands/CommandTable.h"

namespace CommandTable {

namespace {

constexpr auto kClient = Place::Client;
constexpr auto kInstrument = Place::Instrument;
constexpr auto kNobody = Place::Nobody;

// clang-format off
constexpr std::array<Entry, kNumberedCommandCount> kEntries{{
    {"take-screenshot", "Takes a screenshot", kClient},
    {"close-layout-windows", "Closes all windows of the layout, without asking", kClient},
    {"ask-before-closing-windows", "Asks on the function bar whether all windows are to close", kClient},
    {"next-layout", "Goes to the next layout", kClient},
    {"previous-layout", "Goes to the previous layout", kClient},
    {"new-layout", "Makes a new layout and shows it", kClient},
    {"duplicate-layout", "Makes a copy of the layout", kClient},
    {"delete-layout", "Deletes the layout, without asking", kClient},
    {"restore-layout", "Brings the layout back that was deleted last", kClient},
    {"open-layouts", "Opens the overview of the layouts", kClient},
    {"show-layout-1", "Shows layout 1", kClient},
    {"show-layout-2", "Shows layout 2", kClient},
    {"show-layout-3", "Shows layout 3", kClient},
    {"show-layout-4", "Shows layout 4", kClient},
    {"show-layout-5", "Shows layout 5", kClient},
    {"lock-layouts", "Locks the layouts", kClient},
    {"unlock-layouts", "Unlocks the layouts", kClient},
    {"toggle-full-screen", "Shows the active window at full screen, or back at its place", kClient},
    {"next-window", "Makes the next window active", kClient},
    {"previous-window", "Makes the previous window active", kClient},
    {"close-window", "Closes the active window", kClient},
    {"move-window", "Moves the active window by arrows and knob", kClient},
    {"open-window-menu", "Opens the menu of the active window", kClient},
    {"toggle-freeze", "Freezes the active window, or lets it go on", kClient},
    {"toggle-main-menu", "Opens the main menu, or closes it", kClient},
    {"open-help", "Opens the help page", kClient},
    {"open-about", "Opens the page about the versions", kClient},
    {"close-panel", "Closes the panel that lies over the windows", kClient},
    {"open-network-connection", "Opens the dialog of the network connection", kClient},
    {"open-health", "Opens the dialog of the sensors", kClient},
    {"open-time-date", "Opens the dialog of time and date", kClient},
    {"open-system-mode", "Opens the dialog of the system mode", kClient},
    {"open-power-off", "Opens the dialog that switches the instrument off", kClient},
    {"open-console", "Opens the console", kClient},
    {"open-driver-calibration", "Opens the calibration of the output drivers", kClient},
    {"open-presets", "Opens the presets", kClient},
    {"use-dark-theme", "Shows dark panels", kClient},
    {"use-light-theme", "Shows light panels", kClient},
    {"toggle-colour-blind-palette", "Switches the colour-blind palette on or off", kClient},
    {"quit", "Quits the display client", kClient},
    {"open-waveform", "Opens a Waveform window", kClient},
    {"open-signal-status", "Opens a Signal Status window", kClient},
    {"open-input-statistics", "Opens an Input Statistics window", kClient},
    {"open-audio-metering", "Opens an Audio Metering window", kClient},
    {"open-event-log", "Opens the Event Log", kClient},
    {"open-datacore-browser", "Opens a Datacore Browser window", kClient},
    {"open-diagnostics", "Opens the Diagnostics window", kClient},
    {"reserved-47", "Reserved", kNobody},
    {"request-input-rate-logs", "Requests the log of SDI input rates", kInstrument},
    {"request-input-standard-logs", "Requests the log of SDI input standards", kInstrument},
    {"request-jitter-timing-logs", "Requests the log of timing jitter", kInstrument},
    {"request-jitter-alignment-logs", "Requests the log of alignment jitter", kInstrument},
    {"request-reference-locking-logs", "Requests the log of reference standards", kInstrument},
    {"request-ip-tx-logs", "Requests the log of sent IP flows", kInstrument},
    {"request-ip-rx-logs", "Requests the log of received IP flows", kInstrument},
    {"request-ip-interfaces-logs", "Requests the log of the IP interfaces", kInstrument},
    {"request-sfp-logs", "Requests the log of the SFPs", kInstrument},
    {"request-ptp-logs", "Requests the log of PTP", kInstrument},
    {"request-audio-presence-logs", "Requests the log of audio channels that came and went", kInstrument},
    {"request-scte104-logs", "Requests the log of SCTE 104 messages", kInstrument},
    {"reset-event-log", "Empties the event log", kInstrument},
    {"reset-peak-hold", "Lets the hats of the audio meters fall", kInstrument},
    {"analyse-sdi", "Measures the SDI input", kInstrument},
    {"analyse-ip-2110", "Measures the IP 2110 input", kInstrument},
    {"select-source-1", "Selects source 1 of the list of inputs", kInstrument},
    {"select-source-2", "Selects source 2 of the list of inputs", kInstrument},
    {"select-source-3", "Selects source 3 of the list of inputs", kInstrument},
    {"select-source-4", "Selects source 4 of the list of inputs", kInstrument},
    {"select-source-5", "Selects source 5 of the list of inputs", kInstrument},
    {"select-source-6", "Selects source 6 of the list of inputs", kInstrument},
    {"select-source-7", "Selects source 7 of the list of inputs", kInstrument},
    {"select-source-8", "Selects source 8 of the list of inputs", kInstrument},
    {"select-source-9", "Selects source 9 of the list of inputs", kInstrument},
    {"select-source-10", "Selects source 10 of the list of inputs", kInstrument},
    {"select-source-11", "Selects source 11 of the list of inputs", kInstrument},
    {"save-preset", "Saves the screen into the preset that was loaded last", kClient},
    {"undo-preset", "Undoes the preset that was loaded last", kClient},
    {"load-preset-1", "Loads preset 1 of the list", kClient},
    {"load-preset-2", "Loads preset 2 of the list", kClient},
    {"load-preset-3", "Loads preset 3 of the list", kClient},
    {"load-preset-4", "Loads preset 4 of the list", kClient},
    {"load-preset-5", "Loads preset 5 of the list", kClient},
    {"load-preset-6", "Loads preset 6 of the list", kClient},
    {"load-preset-7", "Loads preset 7 of the list", kClient},
    {"load-preset-8", "Loads preset 8 of the list", kClient},
    {"load-preset-9", "Loads preset 9 of the list", kClient},
    {"load-preset-10", "Loads preset 10 of the list", kClient},
    {"press-function-button-1", "Presses function button 1", kClient},
    {"press-function-button-2", "Presses function button 2", kClient},
    {"press-function-button-3", "Presses function button 3", kClient},
    {"press-function-button-4", "Presses function button 4", kClient},
    {"press-function-button-5", "Presses function button 5", kClient},
    {"press-function-button-6", "Presses function button 6", kClient},
    {"press-function-button-7", "Presses function button 7", kClient},
    {"press-function-button-8", "Presses function button 8", kClient},
    {"press-function-button-9", "Presses function button 9", kClient},
    {"press-function-button-10", "Presses function button 10", kClient},
    {"press-logo", "Presses the logo button", kClient},
    {"press-back", "Presses Back", kClient},
    {"press-ok", "Presses OK", kClient},
    {"press-up", "Presses the arrow up", kClient},
    {"press-down", "Presses the arrow down", kClient},
    {"press-left", "Presses the arrow to the left", kClient},
    {"press-right", "Presses the arrow to the right", kClient},
    {"turn-knob-clockwise", "Turns the knob one step clockwise", kClient},
    {"turn-knob-anticlockwise", "Turns the knob one step anticlockwise", kClient},
}};
// clang-format on

} // namespace

const std::array<Entry, kNumberedCommandCount>& entries()
{
    return kEntries;
}

const Entry& entry(NumberedCommand command)
{
    return kEntries.at(static_cast<std::size_t>(command));
}

std::optional<NumberedCommand> fromNumber(int number)
{
    if (number < 0 || number >= kNumberedCommandCount)
        return std::nullopt;
    return static_cast<NumberedCommand>(number);
}

std::optional<NumberedCommand> fromName(const QString& name)
{
    for (int number = 0; number < kNumberedCommandCount; ++number) {
        if (name == QLatin1String(kEntries.at(static_cast<std::size_t>(number)).name))
            return static_cast<NumberedCommand>(number);
    }
    return std::nullopt;
}

QString help()
{
    constexpr int kNumberWidth = 3;
    constexpr int kNameWidth = 32;
    QString text;
    for (int number = 0; number < kNumberedCommandCount; ++number) {
        const Entry& each = kEntries.at(static_cast<std::size_t>(number));
        text += QString::number(number).rightJustified(kNumberWidth) + QLatin1String("  ")
            + QString::fromLatin1(each.name).leftJustified(kNameWidth) + QLatin1String(each.text)
            + QLatin1Char('\n');
    }
    return text;
}

} // namespace CommandTable
