#include "instruments/inputstatistics/FormatHistory.h"

#include <algorithm>

void FormatHistory::note(const QString& format, Time now)
{
    if (format == m_format)
        return;
    if (isKnown() && !format.isEmpty())
        ++m_changes;
    m_longest = longestUnchanged(now);
    m_format = format;
    m_since = now;
}

void FormatHistory::forget(Time now)
{
    note({}, now);
}

void FormatHistory::resetCounts(Time now)
{
    m_changes = 0;
    m_longest = Time(0);
    m_countedSince = now;
}

FormatHistory::Time FormatHistory::longestUnchanged(Time now) const
{
    return isKnown() ? std::max(m_longest, now - std::max(m_since, m_countedSince)) : m_longest;
}
