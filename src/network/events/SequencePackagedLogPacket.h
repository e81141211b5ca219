#pragma once

#include "network/SerialisableDataPacket.h"

#include <QDateTime>

class LogSerialisableDataPacket;

/// An event with the time at which it happened, as it travels from the instrument to its clients.
///
/// | key | type | meaning |
/// |---|---|---|
/// | "logPacket" | object | the event packet |
/// | "julianDate" | whole number | its date as a Julian day number |
/// | "msecsSinceStartOfDay" | whole number | its time of day in milliseconds |
/// | "requested" | bool | the client has asked for it; absent when it has not |
///
/// Date and time are the instrument's local ones, and the reader takes them for its own. What its own clocks
/// skip when daylight-saving time begins it reads an hour later.
class SequencePackagedLogPacket : public SerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName{"SequencePackagedLogPacket", 25};

    SequencePackagedLogPacket();
    /// Reads a packet that was received.
    explicit SequencePackagedLogPacket(const SerialisableDataPacket& packet);
    SequencePackagedLogPacket(const LogSerialisableDataPacket& event, const QDateTime& time);

    /// A client that has shown it before is to show it once more.
    void markRequested();
    bool isRequested() const;

    /// The event packet, empty when there is none.
    SerialisableDataPacket getLogPacket() const;
    /// Local time. Invalid when date or time of day are missing, no whole numbers or out of range: years
    /// from 1 to 9999 and the milliseconds of one day are taken.
    QDateTime getTime() const;
};
