#include "app/StartupTrace.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

#include <unistd.h>

namespace StartupTrace {
namespace {

bool enabled = false;

/// When the process began, in milliseconds of the boot clock: the 22nd field of its state, in clock ticks.
/// The second field, a name in parentheses, may hold anything.
double processStart()
{
    std::ifstream file("/proc/self/stat");
    std::string line;
    std::getline(file, line);
    std::size_t position = line.rfind(')');
    for (int field = 2; field < 22 && position != std::string::npos; ++field)
        position = line.find(' ', position + 1);
    if (position == std::string::npos)
        return 0;
    return std::strtod(line.c_str() + position, nullptr) * 1000.0 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

double now()
{
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace

void enable()
{
    enabled = true;
}

bool isEnabled()
{
    return enabled;
}

void step(const char* name)
{
    static const double start = processStart();
    if (enabled)
        std::fprintf(stderr, "startup: %7.1f ms  %s\n", now() - start, name);
}

} // namespace StartupTrace
