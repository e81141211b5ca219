#pragma once

#include "presets/PresetPacket.h"

/// Whole presets on their way from the server, each under its class name.
class ClientPresetCollection : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"ClientPresetCollection", 22};

    ClientPresetCollection();

    void appendClientPreset(const SerialisableDataPacket& packet);
    bool containsClientPreset(const QString& key) const;
    SerialisableDataPacket getClientPreset(const QString& key) const;
};
