#include "logging/LogThrottle.h"

#include <algorithm>
#include <vector>

namespace Velmora {

namespace {

struct ThrottleList {
    std::mutex mutex;
    std::vector<LogThrottle*> throttles;
};

/// Never freed, since throttles are statics that are destroyed in no known order.
ThrottleList& throttleList()
{
    static auto* const list = new ThrottleList;
    return *list;
}

} // namespace

LogThrottle::LogThrottle()
{
    auto& list = throttleList();
    const std::lock_guard lock(list.mutex);
    list.throttles.push_back(this);
}

LogThrottle::~LogThrottle()
{
    auto& list = throttleList();
    const std::lock_guard lock(list.mutex);
    std::erase(list.throttles, this);
}

bool LogThrottle::admit(spdlog::level::level_enum level, Clock::time_point now)
{
    const std::lock_guard lock(m_mutex);
    m_level = level;
    if (m_linesInWindow == 0 || now - m_windowStart >= kWindow) {
        reportLeftOut();
        m_windowStart = now;
        m_linesInWindow = 0;
    }
    if (m_linesInWindow < kLinesPerWindow) {
        ++m_linesInWindow;
        return true;
    }
    ++m_leftOut;
    return false;
}

void LogThrottle::flushAll()
{
    auto& list = throttleList();
    const std::lock_guard lock(list.mutex);
    for (auto* throttle : list.throttles) {
        const std::lock_guard throttleLock(throttle->m_mutex);
        throttle->reportLeftOut();
    }
}

void LogThrottle::resetAll()
{
    auto& list = throttleList();
    const std::lock_guard lock(list.mutex);
    for (auto* throttle : list.throttles) {
        const std::lock_guard throttleLock(throttle->m_mutex);
        throttle->m_linesInWindow = 0;
        throttle->m_leftOut = 0;
    }
}

void LogThrottle::reportLeftOut()
{
    if (m_leftOut == 0)
        return;
    Velmora::log()->log(m_level, "... and {} more messages of the following kind were left out", m_leftOut);
    m_leftOut = 0;
}

} // namespace Velmora
