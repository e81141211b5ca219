#include "instruments/eventlog/EventRows.h"

void EventRows::setFilter(const EventKindFilter& filter)
{
    *this = EventRows();
    m_filter = filter;
}

int EventRows::update(const EventRing& entries)
{
    while (!m_numbers.empty() && m_numbers.front() < entries.begin())
        m_numbers.pop_front();
    const quint64 before = m_appended;
    for (quint64 number = qMax(m_lookedUpTo, entries.begin()); number < entries.end(); ++number) {
        if (!m_filter.accepts(entries.at(number).kind))
            continue;
        m_numbers.push_back(number);
        ++m_appended;
    }
    m_lookedUpTo = entries.end();
    return static_cast<int>(m_appended - before);
}
