#include "instruments/diagnostics/DrawClock.h"

#include "gui/framework/WzSubWindow.h"

#include <algorithm>

namespace {

QString windowOf(const QObject* receiver)
{
    for (const QObject* object = receiver; object; object = object->parent()) {
        if (const auto* const window = qobject_cast<const WzSubWindow*>(object))
            return QStringLiteral("%1 %2").arg(window->windowTitle()).arg(window->getInstanceNumber() + 1);
    }
    return {};
}

} // namespace

DrawClock& DrawClock::getInstance()
{
    static DrawClock clock;
    return clock;
}

void DrawClock::stop()
{
    if (--m_users == 0)
        m_shares.clear();
}

void DrawClock::note(const QObject* receiver, std::chrono::nanoseconds time)
{
    Share& share = m_shares[windowOf(receiver)];
    ++share.events;
    share.time += time;
}

std::vector<DrawClock::Share> DrawClock::take()
{
    std::vector<Share> shares;
    for (auto entry = m_shares.begin(); entry != m_shares.end(); ++entry) {
        entry->window = entry.key();
        shares.push_back(*entry);
    }
    m_shares.clear();
    std::sort(shares.begin(), shares.end(),
              [](const Share& a, const Share& b) { return a.window < b.window; });
    return shares;
}
