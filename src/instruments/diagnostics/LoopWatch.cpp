#include "instruments/diagnostics/LoopWatch.h"

#include <QThread>

LoopWatch* LoopWatch::s_current = nullptr;

LoopWatch::LoopWatch()
{
    s_current = this;
}

LoopWatch::~LoopWatch()
{
    s_current = nullptr;
}

LoopWatch::Scope::Scope()
    : m_watch(s_current)
{
    if (!m_watch)
        return;
    std::vector<Handling>& handling = m_watch->m_handling;
    const int level = QThread::currentThread()->loopLevel();
    m_isOutermost = handling.empty() || level > handling.back().loopLevel;
    if (!m_isOutermost)
        return;
    if (!handling.empty())
        handling.back().ranLoop = true;
    handling.push_back({level});
    m_time.start();
}

LoopWatch::Scope::~Scope()
{
    // The watch may have ended, or begun, with the event.
    if (!m_isOutermost || m_watch != s_current)
        return;
    const bool ranLoop = m_watch->m_handling.back().ranLoop;
    m_watch->m_handling.pop_back();
    if (!ranLoop)
        m_watch->note(std::chrono::milliseconds(m_time.elapsed()));
    m_watch->m_cause.clear();
}

void LoopWatch::note(std::chrono::milliseconds busy)
{
    if (busy <= kLimit)
        return;
    ++m_stalls;
    if (busy > m_longest) {
        m_longest = busy;
        m_longestCause = m_cause;
    }
}
