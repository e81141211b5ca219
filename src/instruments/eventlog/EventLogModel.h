#pragma once

#include "instruments/eventlog/EventRing.h"
#include "network/events/EventReplayFilter.h"

#include <QBasicTimer>
#include <QObject>

/// The event log: what the instrument has told since the client runs, whether a window shows it or not.
///
/// A new connection brings the events that the instrument has kept once more; they are not entered twice, and
/// a reset among them is not carried out twice.
class EventLogModel : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    const EventRing& entries() const { return m_entries; }
    /// Entries from this number on have not been looked at.
    quint64 firstUnseen() const { return qMax(m_firstUnseen, m_entries.begin()); }
    int unseenCount() const { return static_cast<int>(m_entries.end() - firstUnseen()); }

public slots:
    void onConnected();
    void onResetEventLog();
    void onNewEvent(EventKind kind, const QDateTime& time, const QString& message);
    /// Enters the event whether it was there before or not: the user wants to see it now.
    void onRequestedEvent(EventKind kind, const QDateTime& time, const QString& message);
    void markAllSeen();

signals:
    /// Entries came or went. Collected: at most some twenty times a second.
    void changed();
    /// Along with changed().
    void unseenCountChanged(int count);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void noteChange();

    EventRing m_entries;
    EventReplayFilter m_replayFilter;
    quint64 m_firstUnseen = 0;
    int m_toldUnseen = 0;
    bool m_resetDue = false;
    QBasicTimer m_timer;
};
