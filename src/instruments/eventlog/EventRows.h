#pragma once

#include "instruments/eventlog/EventKindFilter.h"
#include "instruments/eventlog/EventRing.h"

#include <deque>

/// The rows of the event log: the numbers of the entries that pass the filter, the newest first.
class EventRows {
public:
    const EventKindFilter& filter() const { return m_filter; }
    /// All rows are found anew at the next update.
    void setFilter(const EventKindFilter& filter);

    /// Takes in what came and went since the last update. Returns how many rows are new, at the top.
    int update(const EventRing& entries);

    int count() const { return static_cast<int>(m_numbers.size()); }
    quint64 number(int row) const { return m_numbers[m_numbers.size() - 1 - static_cast<std::size_t>(row)]; }
    /// A row keeps this for good, so that alternate rows keep their shade.
    bool isOdd(int row) const { return (m_appended - static_cast<quint64>(row)) % 2 == 0; }

private:
    EventKindFilter m_filter;
    std::deque<quint64> m_numbers; ///< ascending
    quint64 m_lookedUpTo = 0;
    quint64 m_appended = 0;
};
