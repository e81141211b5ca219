#pragma once

#include "network/events/TextEventPacket.h"

/// A received IP media stream has changed.
class IpRxEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("IpRxEventPacket");

    explicit IpRxEventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::IpReceive, latin1("Ip_Rx"), text)
    {
    }
};
