#pragma once

#include "network/events/TextEventPacket.h"

/// A network interface has changed: link, speed or address.
class IpInterfacesEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("IpInterfacesEventPacket");

    explicit IpInterfacesEventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::IpInterfaces, latin1("Ip_Interfaces"), text)
    {
    }
};
