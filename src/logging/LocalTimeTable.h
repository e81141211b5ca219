#pragma once

#include <array>
#include <cstddef>
#include <ctime>

/// The offsets of local time from UTC, read ahead of time, so that a signal handler can tell the local time.
///
/// localtime_r() holds a lock of the C library while it works, as does every log line that is being stamped;
/// a process that dies in there would wait for itself for ever.
class LocalTimeTable {
public:
    /// Reads the offsets of the coming twenty years for the process's time zone. Not for signal handlers.
    void prepare(std::time_t now);

    /// Seconds that local time is ahead of UTC at @p when. Outside the prepared years the nearest known
    /// offset counts. Usable inside a signal handler.
    [[nodiscard]] long utcOffset(std::time_t when) const;

private:
    struct Period {
        std::time_t begin = 0;
        long offset = 0;
    };
    /// Twenty years of the liveliest zones, with four changes a year, and some more.
    std::array<Period, 128> m_periods{};
    std::size_t m_count = 0;
};
