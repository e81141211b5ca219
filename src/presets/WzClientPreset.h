#pragma once

#include "presets/ClientSectionPresets.h"
#include "presets/WindowLayoutPreset.h"

#include <deque>
#include <vector>

/// The whole saved state of the display client under a name. A section that is absent leaves its owner as it
/// is when the preset is loaded.
class WzClientPreset : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"ClientPreset", 12};

    WzClientPreset();

    void setPresetName(const QString& name);
    bool containsPresetName() const;
    QString getPresetName() const;

    void setWzCustomStylePreset(const WzCustomStylePreset& preset);
    bool containsWzCustomStylePreset() const;
    WzCustomStylePreset getWzCustomStylePreset() const;

    void setToolBarPresets(const WzToolBarPreset& preset);
    bool containsToolBarPresets() const;
    WzToolBarPreset getToolBarPresets() const;

    void setFavouriteShortcutsPresets(const WzFavouriteShortcutsPreset& preset);
    bool containsFavouriteShortcutsPresets() const;
    WzFavouriteShortcutsPreset getFavouriteShortcutsPresets() const;

    void setClientSettingsPreset(const WzClientSettingsPreset& preset);
    bool containsClientSettingsPreset() const;
    WzClientSettingsPreset getClientSettingsPreset() const;

    void setDisplayMainWindowSettingsPreset(const DisplayMainWindowSettingsPreset& preset);
    bool containsDisplayMainWindowSettingsPreset() const;
    DisplayMainWindowSettingsPreset getDisplayMainWindowSettingsPreset() const;

    /// A flat list of windows, as clients without layouts save them.
    void setSubWindowPresets(const std::vector<WzSubWindowPreset>& presets);
    bool containsSubWindowPresets() const;
    std::vector<WzSubWindowPreset> getSubWindowPresets() const;

    /// The layouts in display order.
    void setWindowLayoutPresets(const std::deque<WindowLayoutPreset>& layouts);
    bool containsWindowLayoutPresets() const;
    std::deque<WindowLayoutPreset> getWindowLayoutPresets() const;
};
