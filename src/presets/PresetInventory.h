#pragma once

#include "presets/PresetPacket.h"

#include <deque>

/// The server's list of stored presets.
class PresetInventory : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"PresetInventory", 15};

    struct PresetInventoryItem {
        QString name;
    };

    PresetInventory();

    void setPresetInventory(const std::deque<PresetInventoryItem>& items);
    bool containsPresetInventory() const;
    /// Entries without a name are left out.
    std::deque<PresetInventoryItem> getPresetInventoryItems() const;
};
