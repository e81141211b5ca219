#pragma once

#include "instruments/eventlog/EventKindFilter.h"
#include "instruments/eventlog/EventRing.h"

#include <deque>

/// The rows of the event log: the numbers of the entries that pass filter and search, the newest first.
class EventRows {
public:
    const EventKindFilter& filter() const { return m_filter; }
    const QString& searchedText() const { return m_searchedText; }
    /// All rows are found anew at the next update: those of the kinds whose message holds the text, in large
    /// letters or small ones.
    void setFilter(const EventKindFilter& filter, const QString& searchedText);

    /// Takes in what came and went since the last update. Returns how many rows are new, at the top.
    int update(const EventRing& entries);

    int count() const { return static_cast<int>(m_numbers.size()); }
    quint64 number(int row) const { return m_numbers[m_numbers.size() - 1 - static_cast<std::size_t>(row)]; }
    /// A row keeps this for good, so that alternate rows keep their shade.
    bool isOdd(int row) const { return (m_appended - static_cast<quint64>(row)) % 2 == 0; }

private:
    bool accepts(const EventEntry& entry) const;

    EventKindFilter m_filter;
    QString m_searchedText;
    std::deque<quint64> m_numbers; ///< ascending
    quint64 m_lookedUpTo = 0;
    quint64 m_appended = 0;
};
