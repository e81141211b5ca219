#pragma once

#include "presets/WzSubWindowContentPreset.h"

/// The saved state of a window whose state is its settings, each under its key. Every instrument has a class
/// name of its own for it.
class SettingsContentPreset : public WzSubWindowContentPreset {
public:
    explicit SettingsContentPreset(const QString& className)
        : WzSubWindowContentPreset(className)
    {
    }
    explicit SettingsContentPreset(const SerialisableDataPacket& packet)
        : WzSubWindowContentPreset(packet.getPacketClassName())
    {
        static_cast<SerialisableDataPacket&>(*this) = packet;
    }

    void setSetting(QLatin1String key, const QJsonValue& state) { setValue(key, state); }
    /// Undefined when there is none.
    QJsonValue setting(QLatin1String key) const { return value(key); }
};
