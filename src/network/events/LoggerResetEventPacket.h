#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// The event log was emptied; what came before is to be forgotten.
class LoggerResetEventPacket final : public LogSerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName = latin1("LoggerResetEventPacket");

    LoggerResetEventPacket()
        : LogSerialisableDataPacket(kClassName, EventKind::LogReset)
    {
    }

    QString getEventCustomMessage() const override { return QStringLiteral("Event Logging Reset"); }
};
