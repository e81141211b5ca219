#pragma once

#include <QMetaType>

/// What can be asked of client and instrument by a number alone, from 0 to 105. The numbers are known to
/// scripts, and travel to the instrument: none ever means something else.
enum class NumberedCommand : int {
    TakeScreenshot = 0,
    CloseLayoutWindows = 1,
    AskBeforeClosingWindows = 2,
    NextLayout = 3,
    PreviousLayout = 4,
    NewLayout = 5,
    DuplicateLayout = 6,
    DeleteLayout = 7,
    RestoreLayout = 8,
    OpenLayouts = 9,
    ShowLayout1 = 10,
    ShowLayout5 = 14,
    LockLayouts = 15,
    UnlockLayouts = 16,
    ToggleFullScreen = 17,
    NextWindow = 18,
    PreviousWindow = 19,
    CloseWindow = 20,
    MoveWindow = 21,
    OpenWindowMenu = 22,
    ToggleFreeze = 23,
    ToggleMainMenu = 24,
    OpenHelp = 25,
    OpenAbout = 26,
    ClosePanel = 27,
    OpenNetworkConnection = 28,
    OpenHealth = 29,
    OpenTimeDate = 30,
    OpenSystemMode = 31,
    OpenPowerOff = 32,
    OpenConsole = 33,
    OpenDriverCalibration = 34,
    OpenPresets = 35,
    UseDarkTheme = 36,
    UseLightTheme = 37,
    ToggleColourBlindPalette = 38,
    Quit = 39,

    OpenWaveform = 40,
    OpenSignalStatus = 41,
    OpenInputStatistics = 42,
    OpenAudioMetering = 43,
    OpenEventLog = 44,
    OpenDatacoreBrowser = 45,
    OpenDiagnostics = 46,
    Reserved47 = 47,

    RequestSdiInputRateLogs = 48,
    RequestSdiInputStandardLogs = 49,
    RequestJitterTimingLogs = 50,
    RequestJitterAlignmentLogs = 51,
    RequestReferenceLockLogs = 52,
    RequestIpTxLogs = 53,
    RequestIpRxLogs = 54,
    RequestIpInterfacesLogs = 55,
    RequestSfpLogs = 56,
    RequestPtpLogs = 57,
    RequestAudioInputPresenceLogs = 58,
    RequestScte104Logs = 59,
    ResetEventLog = 60,
    ResetPeakHold = 61,
    AnalyseSdi = 62,
    AnalyseIp2110 = 63,
    SelectSource1 = 64,
    SelectSource11 = 74,

    SavePreset = 75,
    UndoPreset = 76,
    LoadPreset1 = 77,
    LoadPreset10 = 86,

    PressFunctionButton1 = 87,
    PressFunctionButton10 = 96,
    PressLogo = 97,
    PressBack = 98,
    PressOk = 99,
    PressUp = 100,
    PressDown = 101,
    PressLeft = 102,
    PressRight = 103,
    TurnKnobClockwise = 104,
    TurnKnobAnticlockwise = 105,
};
inline constexpr int kNumberedCommandCount = static_cast<int>(NumberedCommand::TurnKnobAnticlockwise) + 1;

constexpr int numberOf(NumberedCommand command)
{
    return static_cast<int>(command);
}

/// The command so many after the first of a series: numbered(ShowLayout1, 2) shows the third layout.
constexpr NumberedCommand numbered(NumberedCommand first, int offset)
{
    return static_cast<NumberedCommand>(numberOf(first) + offset);
}

Q_DECLARE_METATYPE(NumberedCommand)
