#include "logging/CrashHandler.h"

#include "logging/LocalTimeTable.h"

#include <execinfo.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <new>

namespace {

constexpr char kCrashPipe[] = "/var/run/crashwatch.pipe";
constexpr char kCrashLogFolder[] = "/home/crashlogs/";
constexpr char kUnknownAppName[] = "UNKNOWN_APPNAME";
constexpr char kNoDateTime[] = "NODATETIME";
constexpr mode_t kCrashLogMode = 0644;
constexpr int kMostFrames = 256;
constexpr int kFramesOnStdErr = 16;
constexpr std::size_t kLongestMessage = 1024;
/// The largest page that the processors we run on can be set to (64-bit ARM).
constexpr std::size_t kLargestPage = 64 * 1024;

struct HandledSignal {
    int number;
    const char* name;
    std::array<char, 64> description;
};

// What the handler works with stands ready in static memory: the heap may be what is broken, and there may be
// little left of the stack.

std::array<HandledSignal, 5> s_signals{{
    {SIGSEGV, "SIGSEGV", {}},
    {SIGABRT, "SIGABRT", {}},
    {SIGBUS, "SIGBUS", {}},
    {SIGSTKFLT, "SIGSTKFLT", {}},
    {SIGFPE, "SIGFPE", {}},
}};
constinit LocalTimeTable s_localTime;
std::array<char, PATH_MAX> s_appName;
std::array<char, PATH_MAX + 64> s_crashLogFilename;
std::array<void*, kMostFrames> s_frames;
std::atomic_flag s_reporting;
alignas(std::string) std::array<std::byte, sizeof(std::string)> s_extraText;
mcontext_t s_registers;

/// The extra-text function, alone on its page.
struct alignas(kLargestPage) ProtectedPage {
    CrashHandler::ExtraTextFunction extraText = nullptr;
};
constinit ProtectedPage s_protected;

bool writeAll(int fd, const char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

[[gnu::format(printf, 2, 0)]] void writeFormatted(int fd, const char* format, va_list arguments)
{
    std::array<char, kLongestMessage> text;
    const int length = std::vsnprintf(text.data(), text.size(), format, arguments);
    if (length > 0)
        writeAll(fd, text.data(), std::min(static_cast<std::size_t>(length), text.size() - 1));
}

void setAction(int signal, void (*action)(int))
{
    struct sigaction plain { };
    plain.sa_handler = action;
    ::sigaction(signal, &plain, nullptr);
}

/// From here on the process dies of the next fatal signal, whichever it is, but not of writing where nobody
/// reads any more or where the file may not grow.
void prepareToDie()
{
    for (const HandledSignal& handled : s_signals)
        setAction(handled.number, SIG_DFL);
    setAction(SIGPIPE, SIG_IGN);
    setAction(SIGXFSZ, SIG_IGN);
}

const char* describe(int signal)
{
    for (const HandledSignal& handled : s_signals) {
        if (handled.number == signal && handled.description[0] != '\0')
            return handled.description.data();
    }
    return ::strsignal(signal);
}

/// The word of the signal information that follows number, errno and code, on 64-bit systems after a gap: the
/// first member of the union. It is the sender's process id in a signal that a process sent, and the
/// address in a fault. Reading it as an address in both cases would mix the sender's user id into its upper
/// half.
std::uintptr_t fourthWord(const siginfo_t& info)
{
    if (info.si_code <= 0)
        return static_cast<std::uintptr_t>(info.si_pid);
    return reinterpret_cast<std::uintptr_t>(info.si_addr);
}

mcontext_t& interruptedRegisters(void* context)
{
    return static_cast<ucontext_t*>(context)->uc_mcontext;
}

auto& programCounter(mcontext_t& registers)
{
#if defined(__x86_64__)
    return registers.gregs[REG_RIP];
#elif defined(__i386__)
    return registers.gregs[REG_EIP];
#elif defined(__aarch64__)
    return registers.pc;
#elif defined(__arm__)
    return registers.arm_pc;
#else
#error "Tell where this processor keeps the program counter."
#endif
}

bool isReadable(std::uintptr_t address)
{
    // The kernel fetches the signal mask before it finds that there is no such operation as -1.
    constexpr std::size_t kKernelMaskSize = 8;
    return ::syscall(SYS_rt_sigprocmask, -1, address, nullptr, kKernelMaskSize) == 0 || errno != EFAULT;
}

/// Turns the registers after a call back to the calling instruction, if there was one.
void goBackToTheCaller(mcontext_t& registers)
{
#if defined(__x86_64__) || defined(__i386__)
#if defined(__x86_64__)
    greg_t& stackPointer = registers.gregs[REG_RSP];
#else
    greg_t& stackPointer = registers.gregs[REG_ESP];
#endif
    const auto top = static_cast<std::uintptr_t>(stackPointer);
    greg_t returnAddress = 0;
    if (!isReadable(top))
        return;
    std::memcpy(&returnAddress, reinterpret_cast<const void*>(top), sizeof returnAddress);
    if (!isReadable(static_cast<std::uintptr_t>(returnAddress)))
        return;
    stackPointer += static_cast<greg_t>(sizeof returnAddress);
#elif defined(__aarch64__)
    const auto returnAddress = registers.regs[30];
#elif defined(__arm__)
    const auto returnAddress = registers.arm_lr;
#endif
    programCounter(registers) = returnAddress - 1;
}

/// Whether the fault was that there is no instruction to execute, as after a call through a bad pointer.
bool jumpedToNowhere(int signal, const siginfo_t& info, mcontext_t& registers)
{
    return (signal == SIGSEGV || signal == SIGBUS)
        && fourthWord(info) == static_cast<std::uintptr_t>(programCounter(registers));
}

/// Does once, while the process is well, what would allocate or lock when done for the first time in the
/// handler.
void makeReady()
{
    for (HandledSignal& handled : s_signals)
        std::snprintf(handled.description.data(), handled.description.size(), "%s",
                      ::strsignal(handled.number));
    s_localTime.prepare(std::time(nullptr));
    // The first backtrace loads the unwinder's library.
    ::backtrace(s_frames.data(), 1);
}

} // namespace

void CrashHandler::setup(ExtraTextFunction extraText)
{
    makeReady();
    for (const HandledSignal& handled : s_signals)
        installSignalHandler(handled.number, handled.name);
    storeExtraTextFunction(extraText);
}

void CrashHandler::installSignalHandler(int signal, const char* name)
{
    struct sigaction action { };
    action.sa_sigaction = &CrashHandler::sigHandler;
    action.sa_flags = SA_SIGINFO | static_cast<int>(SA_RESETHAND);
    ::sigemptyset(&action.sa_mask);
    if (::sigaction(signal, &action, nullptr) != 0)
        writeStdErr("%s: Error installing exception handler for %s\n", getAppName(), name);
}

void CrashHandler::storeExtraTextFunction(ExtraTextFunction extraText)
{
    const auto protect = [](int access) {
        const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        if (pageSize <= sizeof(s_protected))
            return ::mprotect(&s_protected, pageSize, access) == 0;
        errno = EINVAL;
        return false;
    };
    // The first time the page is writable anyway, and opening it changes nothing.
    if (protect(PROT_READ | PROT_WRITE)) {
        s_protected.extraText = extraText;
        if (protect(PROT_READ))
            return;
    }
    const int error = errno;
    writeStdErr("%s: Error protecting read only data (errno %d)\n", getAppName(), error);
}

void CrashHandler::sigHandler(int signal, siginfo_t* info, void* context)
{
    prepareToDie();
    // Two threads can die of different signals at the same moment; the second gets no report.
    if (!s_reporting.test_and_set())
        report(signal, *info, context);
    // The signal is blocked while its handler runs. It takes effect on return, before the instruction that
    // was interrupted, so that a core file shows the place of the fault and not this handler.
    ::raise(signal);
}

void CrashHandler::report(int signal, const siginfo_t& info, void* context)
{
    notifyCrash();
    const char* const filename = getCrashLogFilename();
    const int fd = ::open(filename, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kCrashLogMode);
    if (fd < 0)
        writeStdErr("Failed to open crash log! (errno=%d)\n", errno);
    appendCrashSummaryToCrashLog(fd, signal, info, context);
    appendExtraTextToCrashLog(fd, signal);

    // In code that it does not know the unwinder looks at the instructions. Where there are none it would
    // fault, so it is shown the place that jumped there. The core file gets the registers as they were.
    mcontext_t& registers = interruptedRegisters(context);
    s_registers = registers;
    if (jumpedToNowhere(signal, info, registers))
        goBackToTheCaller(registers);
    appendBackTraceToCrashLog(fd);
    registers = s_registers;

    if (fd >= 0)
        ::close(fd);
    // Also after a failure: the line closes the report on standard error and names the file that was meant.
    writeStdErr("%s: Crashlog written to %s\n", getAppName(), filename);
}

const char* CrashHandler::getAppName()
{
    const ssize_t length = ::readlink("/proc/self/exe", s_appName.data(), s_appName.size() - 1);
    if (length < 0)
        return kUnknownAppName;
    s_appName[static_cast<std::size_t>(length)] = '\0';
    const char* const lastSlash = std::strrchr(s_appName.data(), '/');
    return lastSlash ? lastSlash + 1 : kUnknownAppName;
}

const char* CrashHandler::getCrashLogFilename()
{
    using namespace std::chrono;

    std::array<char, 32> stamp;
    const std::time_t now = std::time(nullptr);
    if (now == std::time_t(-1)) {
        writeStdErr("%s: Failed to get date/time for crash log filename - defaulting to NODATETIME\n",
                    getAppName());
        std::snprintf(stamp.data(), stamp.size(), "%s", kNoDateTime);
    } else {
        const sys_seconds local{seconds{now + s_localTime.utcOffset(now)}};
        const auto midnight = floor<days>(local);
        const year_month_day date{midnight};
        const hh_mm_ss time{local - midnight};
        std::snprintf(stamp.data(), stamp.size(), "%02d%02u%02u-%02d%02d%02d",
                      static_cast<int>(date.year()) % 100, static_cast<unsigned>(date.month()),
                      static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                      static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    }
    std::snprintf(s_crashLogFilename.data(), s_crashLogFilename.size(), "%s%s-crashlog-%s", kCrashLogFolder,
                  getAppName(), stamp.data());
    return s_crashLogFilename.data();
}

void CrashHandler::writeStdErr(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(STDERR_FILENO, format, arguments);
    va_end(arguments);
}

void CrashHandler::appendCrashLog(int fd, const char* format, ...)
{
    if (fd < 0)
        return;
    va_list arguments;
    va_start(arguments, format);
    writeFormatted(fd, format, arguments);
    va_end(arguments);
}

void CrashHandler::appendCrashSummaryToCrashLog(int fd, int signal, const siginfo_t& info, void* context)
{
    // Process id and address are one value in two notations; readers of crash logs know which one to take.
    const std::uintptr_t word = fourthWord(info);
    appendCrashLog(fd, "%s (PID:%d) received signal %d (%s), address is %p from %p\n", getAppName(),
                   static_cast<int>(word), signal, describe(signal), reinterpret_cast<void*>(word),
                   reinterpret_cast<void*>(programCounter(interruptedRegisters(context))));
}

void CrashHandler::appendExtraTextToCrashLog(int fd, int signal)
{
    if (!s_protected.extraText)
        return;
    try {
        // Never destroyed: nothing may be given back to a heap that may be broken.
        const auto* const text = new (s_extraText.data()) std::string(s_protected.extraText(signal));
        if (fd >= 0)
            writeAll(fd, text->data(), text->size());
    } catch (...) {
        writeStdErr("%s: The extra text for the crash log is missing: its function threw\n", getAppName());
    }
}

void CrashHandler::appendBackTraceToCrashLog(int fd)
{
    appendCrashLog(fd, "Backtrace:\n");
    const int count = ::backtrace(s_frames.data(), kMostFrames);
    ::backtrace_symbols_fd(s_frames.data(), std::min(count, kFramesOnStdErr), STDERR_FILENO);
    if (fd >= 0)
        ::backtrace_symbols_fd(s_frames.data(), count, fd);
}

void CrashHandler::notifyCrash()
{
    // A watcher that does not read must not hold up the crash: without one the open fails with ENXIO, and a
    // full pipe fails the write with EAGAIN.
    const int pipe = ::open(kCrashPipe, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (pipe < 0) {
        const int error = errno;
        writeStdErr("%s: Failed to notify of crash - cannot open pipe! (errno=%d)\n", getAppName(), error);
        return;
    }
    const char* const name = getAppName();
    if (!writeAll(pipe, name, std::strlen(name) + 1)) {
        const int error = errno;
        writeStdErr("%s: Failed to notify of crash - cannot write to pipe! (errno=%d)\n", name, error);
    }
    ::close(pipe);
}
