#pragma once

#include <spdlog/logger.h>

#include <memory>

namespace Velmora {

/// Name under which the program's one logger is registered with spdlog.
inline constexpr char kLoggerName[] = "WZLOG";

/// Starts the log: registers the logger "WZLOG" with a syslog sink (identity "wz_displayclient" unless
/// setLogIdentity() gave another) and, when @p logToStandardOutput is set, a standard-output sink.
///
/// A second call replaces the logger of the first. @p logDirectory is accepted, but no sink writes into it.
void initLogging(bool logToStandardOutput, const char* logDirectory);

/// Ends the log: reports what the throttles still hold back, then removes the logger with its sinks.
/// Messages logged afterwards go nowhere.
void ceaseLogging();

/// Sets the syslog identity of the next initLogging(). @p identity must live as long as the log.
void setLogIdentity(const char* identity);

/// The logger "WZLOG", or a quiet one that drops everything while none is registered: before initLogging(),
/// after ceaseLogging() and during the destruction of static objects. Never null; do not keep the pointer,
/// it would hold the sinks open after the log has ended.
std::shared_ptr<spdlog::logger> log();

} // namespace Velmora
