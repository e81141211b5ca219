#pragma once

#include "network/events/TextEventPacket.h"

/// A transmitted IP media stream has changed.
class IpTxEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("IpTxEventPacket");

    explicit IpTxEventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::IpTransmit, latin1("Ip_Tx"), text)
    {
    }
};
