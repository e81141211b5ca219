#include "logging/Logging.h"

#include "logging/LogThrottle.h"

#include <spdlog/sinks/null_sink.h>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/sinks/syslog_sink.h>
#include <spdlog/spdlog.h>

#include <syslog.h>

#include <vector>

namespace Velmora {

namespace {

const char* s_identity = "wz_displayclient";

bool s_registryAlive = false;

/// Follows the life of spdlog's registry. Made right after the registry, it is destroyed right before it,
/// so that a late message of another static object does not reach a dead registry.
struct RegistryWitness {
    RegistryWitness() { s_registryAlive = true; }
    ~RegistryWitness() { s_registryAlive = false; }
};

void witnessRegistry()
{
    spdlog::details::registry::instance();
    static const RegistryWitness witness;
}

/// Deliberately never freed: it has to outlive every static object that might still log.
const std::shared_ptr<spdlog::logger>& quietLogger()
{
    static const auto* const logger = [] {
        auto quiet =
            std::make_shared<spdlog::logger>(kLoggerName, std::make_shared<spdlog::sinks::null_sink_mt>());
        quiet->set_level(spdlog::level::off);
        return new std::shared_ptr<spdlog::logger>(std::move(quiet));
    }();
    return *logger;
}

} // namespace

void initLogging(bool logToStandardOutput, const char* /*logDirectory*/)
{
    witnessRegistry();
    std::vector<spdlog::sink_ptr> sinks;
    if (logToStandardOutput)
        sinks.push_back(std::make_shared<spdlog::sinks::stdout_sink_mt>());
    sinks.push_back(std::make_shared<spdlog::sinks::syslog_sink_mt>(s_identity, 0, LOG_USER, false));

    auto logger = std::make_shared<spdlog::logger>(kLoggerName, sinks.begin(), sinks.end());
    spdlog::drop(kLoggerName);
    spdlog::register_logger(logger);
    logger->set_level(spdlog::level::trace);
    logger->set_pattern("[%C/%m/%d][tid:%t][%L]> %v");
}

void ceaseLogging()
{
    LogThrottle::flushAll();
    witnessRegistry();
    spdlog::drop(kLoggerName);
}

void setLogIdentity(const char* identity)
{
    s_identity = identity;
}

std::shared_ptr<spdlog::logger> log()
{
    static const bool witnessed = (witnessRegistry(), true);
    if (witnessed && s_registryAlive) {
        if (auto logger = spdlog::get(kLoggerName))
            return logger;
    }
    return quietLogger();
}

} // namespace Velmora
