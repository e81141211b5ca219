#pragma once

#include "network/events/TextEventPacket.h"

/// The reference has another standard, or lock to it has changed. On the wire the class name is another one.
class ReferenceLockingEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("ReferenceLockingStandardChangeEventPacket");

    explicit ReferenceLockingEventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::Reference, latin1("reference_standard"), text)
    {
    }
};
