#include "instruments/eventlog/EventLogModel.h"

#include <utility>

namespace {

constexpr int kCollectMs = 50;

} // namespace

void EventLogModel::onConnected()
{
    m_replayFilter.onConnected();
}

/// The entry that tells of the reset follows, and only that one shows whether the reset is an old one.
void EventLogModel::onResetEventLog()
{
    m_resetDue = true;
}

void EventLogModel::onNewEvent(EventKind kind, const QDateTime& time, const QString& message)
{
    const bool resets = std::exchange(m_resetDue, false);
    if (m_replayFilter.isRepeat(kind, time, message))
        return;
    if (resets) {
        m_entries.clear();
        m_replayFilter.clear();
        // The entry of the reset itself is to be known again.
        (void)m_replayFilter.isRepeat(kind, time, message);
    }
    m_entries.append({kind, time, message});
    noteChange();
}

void EventLogModel::onRequestedEvent(EventKind kind, const QDateTime& time, const QString& message)
{
    m_entries.append({kind, time, message});
    noteChange();
}

void EventLogModel::markAllSeen()
{
    if (unseenCount() == 0)
        return;
    m_firstUnseen = m_entries.end();
    noteChange();
}

void EventLogModel::noteChange()
{
    if (!m_timer.isActive())
        m_timer.start(kCollectMs, this);
}

void EventLogModel::timerEvent(QTimerEvent*)
{
    m_timer.stop();
    emit changed();
    const int unseen = unseenCount();
    if (std::exchange(m_toldUnseen, unseen) != unseen)
        emit unseenCountChanged(unseen);
}
