#pragma once

#include "presets/WzSubWindowPreset.h"

#include <vector>

/// One named layout: the windows that it shows.
class WindowLayoutPreset : public PresetPacket {
public:
    static constexpr QLatin1String kClassName{"WindowLayoutPreset", 18};

    WindowLayoutPreset();

    void setLayoutName(const QString& name);
    bool containsLayoutName() const;
    QString getLayoutName() const;

    void setSubWindowPresets(const std::vector<WzSubWindowPreset>& presets);
    void addSubWindowPreset(const WzSubWindowPreset& preset);
    bool containsSubWindowPresets() const;
    std::vector<WzSubWindowPreset> getSubWindowPresets() const;
    /// How many windows are stored, without taking them out.
    int subWindowCount() const;

    /// The stacking order from the lowest window to the highest, as indices into the sub-window presets.
    void setSubWindowOrder(const std::vector<int>& order);
    bool containsSubWindowOrder() const;
    /// Only numbers that are an index of a stored window, each once.
    std::vector<int> getSubWindowOrder() const;
};
