#include "instruments/eventlog/EventRing.h"

void EventRing::append(EventEntry entry)
{
    if (m_entries.size() == kCapacity) {
        m_entries.pop_front();
        ++m_begin;
    }
    m_entries.push_back(std::move(entry));
}

void EventRing::clear()
{
    m_begin = end();
    m_entries.clear();
}
