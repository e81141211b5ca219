#pragma once

#include "instruments/eventlog/EventEntry.h"

#include <deque>

/// The latest entries of the event log. Each keeps the number that it was given when it came, so that whoever
/// shows them finds what has come and gone since it looked. A value: a copy shares the texts.
class EventRing {
public:
    static constexpr std::size_t kCapacity = 100'000;

    /// The number of the oldest entry, and the one behind the newest.
    quint64 begin() const { return m_begin; }
    quint64 end() const { return m_begin + m_entries.size(); }
    bool contains(quint64 number) const { return number >= begin() && number < end(); }
    /// @p number has to be contained.
    const EventEntry& at(quint64 number) const { return m_entries[number - m_begin]; }

    /// The oldest goes where there is no room.
    void append(EventEntry entry);
    /// Numbers go on behind those that were given.
    void clear();

private:
    std::deque<EventEntry> m_entries;
    quint64 m_begin = 0;
};
