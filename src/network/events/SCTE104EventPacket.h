#pragma once

#include "network/events/TextEventPacket.h"

/// An SCTE 104 message was found in the ancillary data.
class SCTE104EventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("SCTE104EventPacket");

    explicit SCTE104EventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::Scte104, latin1("SCTE104"), text)
    {
    }
};
