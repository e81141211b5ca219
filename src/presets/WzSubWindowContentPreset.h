#pragma once

#include "presets/PresetPacket.h"

/// The saved state of a window's content. Instruments derive their own from it, each with its own class name.
class WzSubWindowContentPreset : public PresetPacket {
public:
    /// Written with a lower-case w in the middle, unlike the type's name: it is in saved presets.
    static constexpr QLatin1String kClassName{"WzSubwindowContentPreset", 24};

    WzSubWindowContentPreset()
        : PresetPacket(QString(kClassName))
    {
    }

protected:
    using PresetPacket::PresetPacket;
};
