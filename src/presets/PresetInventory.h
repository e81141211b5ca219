#pragma once

#include "presets/PresetPacket.h"

#include <deque>

/// The server's list of stored presets.
class PresetInventory : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"PresetInventory", 15};

    struct PresetInventoryItem {
        QString name;
        qint64 savedMs = 0; ///< when it was stored, in ms since 1970; 0 when unknown
    };

    PresetInventory();

    void setPresetInventory(const std::deque<PresetInventoryItem>& items);
    bool containsPresetInventory() const;
    /// Entries without a name are left out.
    std::deque<PresetInventoryItem> getPresetInventoryItems() const;
};
