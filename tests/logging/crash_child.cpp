// A program that dies in the way that its arguments ask for.
//
// Usage: logging_crash_child [OPTION ...] ACTION

#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"

#include <fmt/format.h>

#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cfenv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

constexpr int kUsage = 2;
constexpr int kCannotEnterRoot = 77;
constexpr uid_t kNobody = 65534;
/// In the lowest 64 KiB, where no system maps anything.
constexpr std::uintptr_t kBadAddress = 0xbad0;

bool s_clockIsBroken = false;
bool s_mprotectFails = false;
void* s_protectedAddress = nullptr;
volatile int s_sink = 0;

/// Tells the test which fault address it has to find in the crash log: a number or "pc".
void announce(const std::string& text)
{
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}
void announce(const volatile void* address)
{
    announce(fmt::format("{:#x}", reinterpret_cast<std::uintptr_t>(address)));
}

void readBadAddress()
{
    volatile std::uintptr_t address = kBadAddress;
    s_sink = *reinterpret_cast<volatile int*>(address);
}

void callBadAddress()
{
    volatile std::uintptr_t address = kBadAddress;
    reinterpret_cast<void (*)()>(address)();
}

void readPastTheEndOfAFile()
{
    const int file = ::memfd_create("empty", MFD_CLOEXEC);
    auto* const address = ::mmap(nullptr, 1, PROT_READ, MAP_SHARED, file, 0);
    announce(address);
    s_sink = *static_cast<volatile char*>(address);
}

void divideByZero()
{
#if defined(__x86_64__) || defined(__i386__)
    ::feenableexcept(FE_DIVBYZERO);
    announce(std::string("pc"));
    volatile double zero = 0;
    s_sink = static_cast<int>(1 / zero);
#else
    // ARM processors do not trap here.
    ::raise(SIGFPE);
#endif
}

const std::map<std::string, std::function<void()>> kActions{
    {"segv",
     [] {
         announce(fmt::format("{:#x}", kBadAddress));
         readBadAddress();
     }},
    {"call",
     [] {
         announce(std::string("pc"));
         callBadAddress();
     }},
    {"abort", [] { std::abort(); }},
    {"bus", &readPastTheEndOfAFile},
    {"stkflt", [] { ::raise(SIGSTKFLT); }},
    {"fpe", &divideByZero},
    {"overwrite",
     [] {
         announce(s_protectedAddress);
         *static_cast<volatile std::uintptr_t*>(s_protectedAddress) = 1;
     }},
    {"wait",
     [] {
         announce(std::string("ready"));
         for (;;)
             ::pause();
     }},
    {"install-kill", [] { CrashHandler::installSignalHandler(SIGKILL, "SIGKILL"); }},
    {"start",
     [] {
         if (CoreDumpControl::isCoreDumpFeatureFlagEnabled())
             CoreDumpControl::enableCoreDumps();
         rlimit limit{};
         ::getrlimit(RLIMIT_CORE, &limit);
         const auto text = [](rlim_t value) {
             return value == RLIM_INFINITY ? std::string("unlimited") : std::to_string(value);
         };
         announce(fmt::format("soft {} hard {}\n", text(limit.rlim_cur), text(limit.rlim_max)));
     }},
};

/// How many signals would still be handled if they came now.
std::string handledSignals()
{
    int count = 0;
    for (int signal = 1; signal < SIGRTMIN; ++signal) {
        struct sigaction action { };
        ::sigaction(signal, nullptr, &action);
        if (action.sa_handler != SIG_DFL && action.sa_handler != SIG_IGN)
            ++count;
    }
    return std::to_string(count) + " handled\n";
}

const std::map<std::string, CrashHandler::ExtraTextFunction> kExtraTexts{
    {"handled", [](int) { return handledSignals(); }},
    {"text", [](int signal) { return "extra text for signal " + std::to_string(signal) + "\n"; }},
    {"long", [](int) { return std::string(5000, 'x') + "\n"; }},
    {"throw", [](int) -> std::string { throw std::runtime_error("no text"); }},
    {"segv",
     [](int) {
         readBadAddress();
         return std::string();
     }},
    {"abort", [](int) -> std::string { std::abort(); }},
};

bool enterRoot(const char* folder)
{
    if (::chroot(folder) != 0 && (::unshare(CLONE_NEWUSER) != 0 || ::chroot(folder) != 0))
        return false;
    return ::chdir("/") == 0;
}

bool breakStandardError()
{
    int ends[2];
    if (::pipe(ends) != 0)
        return false;
    ::close(ends[0]);
    return ::dup2(ends[1], STDERR_FILENO) == STDERR_FILENO;
}

bool limitCoreFiles(rlim_t soft, rlim_t hard)
{
    const rlimit limit{soft, hard};
    return ::setrlimit(RLIMIT_CORE, &limit) == 0;
}

struct Options {
    CrashHandler::ExtraTextFunction extraText = nullptr;
    const char* root = nullptr;
    std::string action;
    int depth = 0;
    bool setupTwice = false;
    bool inThread = false;
    bool asNobody = false;
    bool logs = false;
    bool standardErrorIsBroken = false;
};

Options parse(int argc, char* argv[])
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--root" && i + 1 < argc)
            options.root = argv[++i];
        else if (argument == "--extra" && i + 1 < argc)
            options.extraText = kExtraTexts.at(argv[++i]);
        else if (argument == "--depth" && i + 1 < argc)
            options.depth = std::atoi(argv[++i]);
        else if (argument == "--setup-twice")
            options.setupTwice = true;
        else if (argument == "--thread")
            options.inThread = true;
        else if (argument == "--nobody")
            options.asNobody = true;
        else if (argument == "--log")
            options.logs = true;
        else if (argument == "--broken-stderr")
            options.standardErrorIsBroken = true;
        else if (argument == "--broken-clock")
            s_clockIsBroken = true;
        else if (argument == "--mprotect-fails")
            s_mprotectFails = true;
        else
            options.action = argument;
    }
    return options;
}

} // namespace

// The two system functions below stand before those of the C library, to fail on demand.

extern "C" time_t time(time_t* result) noexcept
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    if (result)
        *result = now.tv_sec;
    return s_clockIsBroken ? time_t(-1) : now.tv_sec;
}

extern "C" int mprotect(void* address, size_t size, int access) noexcept
{
    if (s_mprotectFails) {
        errno = ENOMEM;
        return -1;
    }
    s_protectedAddress = address;
    return static_cast<int>(::syscall(SYS_mprotect, address, size, access));
}

/// Outside the unnamed namespace, so that backtraces show it by name.
[[gnu::noinline, gnu::noclone]] void descend(int depth, const std::function<void()>& action)
{
    if (depth > 0)
        descend(depth - 1, action);
    else
        action();
    s_sink = depth;
}

int main(int argc, char* argv[])
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::umask(0);
    if (!limitCoreFiles(0, RLIM_INFINITY) && !limitCoreFiles(0, 0))
        return kUsage;

    const Options options = parse(argc, argv);
    if (!kActions.contains(options.action) || (options.standardErrorIsBroken && !breakStandardError()))
        return kUsage;
    if (options.logs)
        Velmora::initLogging(true, "");
    if (options.setupTwice)
        CrashHandler::setup(kExtraTexts.at("long"));
    CrashHandler::setup(options.extraText);
    if (options.root && !enterRoot(options.root))
        return kCannotEnterRoot;
    if (options.asNobody) {
        if (!limitCoreFiles(0, 0) || (::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0))
            return kUsage;
    }

    const auto perform = [&] { descend(options.depth, kActions.at(options.action)); };
    if (options.inThread)
        std::thread(perform).join();
    else
        perform();
    return 0;
}
