#pragma once

#include "network/events/LogSerialisableDataPacket.h"

/// Somebody has sent a request to the instrument's REST interface.
class RestApiRequestEventPacket final : public LogSerialisableDataPacket {
public:
    static constexpr QLatin1String kClassName = latin1("RestApiRequestEventPacket");

    RestApiRequestEventPacket();
    RestApiRequestEventPacket(const QString& method, const QString& resource, const QString& address);

    /// "Request GET for resource /status received from 192.168.1.10".
    QString getEventCustomMessage() const override;
};
