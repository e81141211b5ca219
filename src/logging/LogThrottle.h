#pragma once

#include "logging/Logging.h"

#include <chrono>
#include <mutex>
#include <utility>

namespace Velmora {

/// Cuts a flood of one kind of log line to about ten a second and counts the rest.
///
/// Make one function-local static throttle per kind of message. Lines beyond the limit are counted; the count
/// is logged with the first line of that kind in a later second, or when the log ends. Usable from any
/// thread.
class LogThrottle {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr unsigned kLinesPerWindow = 10;
    static constexpr std::chrono::seconds kWindow{1};

    LogThrottle();
    ~LogThrottle();
    LogThrottle(const LogThrottle&) = delete;
    LogThrottle& operator=(const LogThrottle&) = delete;

    /// Logs the line, or counts it when this second's share is used up.
    template<typename... Args>
    void log(spdlog::level::level_enum level, spdlog::format_string_t<Args...> format, Args&&... args)
    {
        if (admit(level, Clock::now()))
            Velmora::log()->log(level, format, std::forward<Args>(args)...);
    }

    /// Whether a line at time @p now may be written; when one may, first reports the lines left out before
    /// it.
    [[nodiscard]] bool admit(spdlog::level::level_enum level, Clock::time_point now);

    /// Reports the lines that every throttle still holds back.
    static void flushAll();
    /// Forgets windows and counts of every throttle. For tests, which expect each line of their own.
    static void resetAll();

private:
    void reportLeftOut();

    std::mutex m_mutex;
    Clock::time_point m_windowStart;
    spdlog::level::level_enum m_level = spdlog::level::info;
    unsigned m_linesInWindow = 0;
    unsigned long m_leftOut = 0;
};

} // namespace Velmora
