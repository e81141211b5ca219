#pragma once

#include "network/SerialisableDataPacketAcceptorInterface.h"
#include "network/events/EventKind.h"

#include <QDateTime>
#include <QObject>

/// Makes entries of the event log out of the sequence-packaged log packets that arrive. To be registered with
/// the distributor for SequencePackagedLogPacket::kClassName.
///
/// The instrument sends the events that it has kept again on every new connection (see EventReplayFilter).
class WzClientSequencePackagedLogPacketHandler : public QObject,
                                                 public SerialisableDataPacketAcceptorInterface {
    Q_OBJECT
public:
    explicit WzClientSequencePackagedLogPacketHandler(QObject* parent = nullptr);

    /// Always true: it is up to the registration what comes here.
    bool canAcceptPacket(const QString& className) const override;
    /// Emits the signals for the event in the packet, in their order below. A packet without an event, or
    /// with one of an unknown class, is passed over without a word.
    void acceptPacket(const SerialisableDataPacket& packet) override;

signals:
    /// The log was reset: what came before is to be forgotten. The entry that says so follows.
    void resetEventLog();
    /// "Mon Nov 23 13:05:00 2026 Event Logging Reset": local time in Qt's text format and the event's
    /// message. "Unknown time" stands in place of a time that the packet does not have or that cannot be.
    void newLogEntry(const QString& entry);
    /// The same entry for filters and tables. @p time is invalid where the entry says that it is unknown.
    void newLogEvent(EventKind kind, const QDateTime& time, const QString& message);
    /// In place of newLogEvent() for an event that the client has asked for: it may have come before.
    void requestedLogEvent(EventKind kind, const QDateTime& time, const QString& message);
};
