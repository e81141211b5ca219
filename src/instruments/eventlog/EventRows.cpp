#include "instruments/eventlog/EventRows.h"

void EventRows::setFilter(const EventKindFilter& filter, const QString& searchedText)
{
    *this = EventRows();
    m_filter = filter;
    m_searchedText = searchedText;
}

bool EventRows::accepts(const EventEntry& entry) const
{
    return m_filter.accepts(entry.kind)
        && (m_searchedText.isEmpty() || entry.message.contains(m_searchedText, Qt::CaseInsensitive));
}

int EventRows::update(const EventRing& entries)
{
    while (!m_numbers.empty() && m_numbers.front() < entries.begin())
        m_numbers.pop_front();
    const quint64 before = m_appended;
    for (quint64 number = qMax(m_lookedUpTo, entries.begin()); number < entries.end(); ++number) {
        if (!accepts(entries.at(number)))
            continue;
        m_numbers.push_back(number);
        ++m_appended;
    }
    m_lookedUpTo = entries.end();
    return static_cast<int>(m_appended - before);
}
