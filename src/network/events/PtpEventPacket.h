#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// The state of the PTP follower, its grandmaster or its offset has changed (IEEE 1588, SMPTE ST 2059-2).
///
/// | key | type | meaning |
/// |---|---|---|
/// | "ptp_event" | text | what has happened, a code of the table in the source |
/// | "ptp_value" | text or number | what holds now: a clock identity, a clock class, an offset with its unit
/// | | "ptp_previous_value" | text or number | what held before | | "ptp_domain" | whole number | the PTP
/// domain |
class PtpEventPacket final : public LogSerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName = latin1("PtpEventPacket");

    enum class Event {
        Locking,
        Locked,
        Holdover,
        LockLost,
        GrandmasterChanged,
        ClockClassChanged,
        ClockAccuracyChanged,
        DomainMismatch,
        ProfileMismatch,
        OffsetOverLimit,
        OffsetWithinLimit,
        AnnounceTimeout,
        OneStep,
        TwoStep,
        LeapSecondFlagsChanged,
        UtcOffsetChanged,
    };

    PtpEventPacket();
    /// Null texts leave their keys out.
    PtpEventPacket(Event event, int domain, const QString& value = QString(),
                   const QString& previousValue = QString());

    /// "PTP clock class changed: 6 to 7 (domain 127)". A code that is not known stands as it is; what is
    /// missing is left out.
    QString getEventCustomMessage() const override;
};
