#pragma once

#include "network/events/TextEventPacket.h"

/// Audio has come or gone at the input.
class AudioInputPresenceChangeEventPacket final : public TextEventPacket {
public:
    static constexpr QLatin1String kClassName = latin1("AudioInputPresenceChangeEventPacket");

    explicit AudioInputPresenceChangeEventPacket(const QString& text = QString())
        : TextEventPacket(kClassName, EventKind::AudioPresence, latin1("audio_in_presence"), text)
    {
    }
};
