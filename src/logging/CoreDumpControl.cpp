#include "logging/CoreDumpControl.h"

#include "logging/Logging.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr char kFlagFile[] = "/home/debug_feature_flags/ENABLE_CORE_DUMPS";

/// The limits are lifted before the log starts, so that a crash while starting it leaves a core file; the
/// outcome must not get lost for that.
void tell(spdlog::level::level_enum level, const std::string& text)
{
    const auto logger = Velmora::log();
    if (logger->should_log(level))
        logger->log(level, text);
    else
        std::fprintf(stderr, "%s\n", text.c_str());
}

} // namespace

bool CoreDumpControl::isCoreDumpFeatureFlagEnabled()
{
    return ::access(kFlagFile, F_OK) == 0;
}

void CoreDumpControl::enableCoreDumps()
{
    const rlimit unlimited{RLIM_INFINITY, RLIM_INFINITY};
    if (::setrlimit(RLIMIT_CORE, &unlimited) == 0)
        tell(spdlog::level::info, "Core dumps are enabled, the size of core files is not limited");
    else
        tell(spdlog::level::warn,
             fmt::format("Core dumps cannot be enabled, the size limit of core files stays: {}",
                         std::strerror(errno)));
}
