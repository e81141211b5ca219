#pragma once

#include <csignal>
#include <string>

/// Leaves a report when the program dies of a fatal signal: tells the crash watcher through its named pipe,
/// writes a crash log, then lets the signal take its default course, so that a core file can still follow.
///
/// The report is written on the stack of the thread that died; a thread that has overflowed its stack
/// dies without one.
class CrashHandler {
public:
    /// Supplies more text for the crash log, given the signal's number.
    using ExtraTextFunction = std::string (*)(int signal);

    /// Installs the handler for SIGSEGV, SIGABRT, SIGBUS, SIGSTKFLT and SIGFPE. To be called first thing in
    /// main(). What fails is reported on standard error and left out. @p extraText, which may be null, is
    /// called inside the signal handler; its memory is read-only from then on, so that stray writes cannot
    /// turn a crash into a jump to anywhere.
    static void setup(ExtraTextFunction extraText);

    // The parts of the handler. All are usable inside a signal handler; those that return a text return a
    // static buffer, which the next call overwrites.

    static const char* getAppName();
    static const char* getCrashLogFilename();
    [[gnu::format(printf, 1, 2)]] static void writeStdErr(const char* format, ...);
    /// Both writers cut a message at 1 KiB; with a negative @p fd the text goes nowhere.
    [[gnu::format(printf, 2, 3)]] static void appendCrashLog(int fd, const char* format, ...);
    static void appendCrashSummaryToCrashLog(int fd, int signal, const siginfo_t& info, void* context);
    static void appendBackTraceToCrashLog(int fd);
    static void notifyCrash();
    static void installSignalHandler(int signal, const char* name);
    static void sigHandler(int signal, siginfo_t* info, void* context);

private:
    static void report(int signal, const siginfo_t& info, void* context);
    static void appendExtraTextToCrashLog(int fd, int signal);
    static void storeExtraTextFunction(ExtraTextFunction extraText);
};
