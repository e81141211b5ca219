#pragma once

#include "network/events/TextEventPacket.h"

/// An SFP module was inserted or removed, or has raised or cleared an alarm.
class SfpEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("SfpEventPacket");

    explicit SfpEventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::Sfp, latin1("Sfp"), text)
    {
    }
};
