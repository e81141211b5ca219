#include "logging/LocalTimeTable.h"

#include <algorithm>

namespace {

constexpr std::time_t kWeek = 7 * 24 * 60 * 60;
constexpr std::time_t kReach = 1044 * kWeek;
/// 2024-01-01. The table never starts earlier: a clock that shows less has yet to be set, and the years that
/// it will show then are the ones to read.
constexpr std::time_t kEarliestPlausible = 1704067200;

long offsetAt(std::time_t when)
{
    std::tm local{};
    return ::localtime_r(&when, &local) ? local.tm_gmtoff : 0;
}

/// The first second after @p before that has another offset, given that @p after has.
std::time_t findChange(std::time_t before, std::time_t after)
{
    const long oldOffset = offsetAt(before);
    while (after - before > 1) {
        const std::time_t middle = before + (after - before) / 2;
        (offsetAt(middle) == oldOffset ? before : after) = middle;
    }
    return after;
}

} // namespace

void LocalTimeTable::prepare(std::time_t now)
{
    ::tzset();
    std::time_t probe = std::max(now, kEarliestPlausible) - kWeek;
    const std::time_t end = probe + kReach;
    m_periods[0] = {probe, offsetAt(probe)};
    m_count = 1;
    for (; probe < end && m_count < m_periods.size(); probe += kWeek) {
        const long offset = offsetAt(probe + kWeek);
        if (offset != m_periods[m_count - 1].offset)
            m_periods[m_count++] = {findChange(probe, probe + kWeek), offset};
    }
}

long LocalTimeTable::utcOffset(std::time_t when) const
{
    long offset = m_periods[0].offset;
    for (std::size_t i = 1; i < m_count && m_periods[i].begin <= when; ++i)
        offset = m_periods[i].offset;
    return offset;
}
