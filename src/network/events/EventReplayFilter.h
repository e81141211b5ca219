#pragma once

#include "network/events/EventKind.h"

#include <QByteArray>
#include <QDateTime>
#include <QSet>

#include <deque>

/// Finds the events that the instrument sends again on a new connection, for a log that goes on over a loss
/// of the connection.
///
/// Equal events are repeats only of those of earlier connections: within one connection nothing is sent
/// twice, and two equal events are two events.
class EventReplayFilter {
public:
    /// Events that are remembered, several times as many as the instrument keeps.
    static constexpr size_t kMostRemembered = 4000;

    /// What was seen by now counts as seen before.
    void onConnected();
    /// Remembers the event and tells whether it was seen before the present connection.
    bool isRepeat(EventKind kind, const QDateTime& time, const QString& message);
    /// Forgets all, as after a reset of a log that shows all that follows anew.
    void clear();

private:
    std::deque<QByteArray> m_recent; ///< digests, for a message may be long
    QSet<QByteArray> m_seenBefore;
};
