#pragma once

#include "presets/WzSubWindowContentPreset.h"

/// The saved state of a signal status window, which has no settings of its own yet.
class SignalStatusContentPreset : public WzSubWindowContentPreset {
public:
    static constexpr QLatin1String kClassName{"SignalStatusContentPreset", 25};

    SignalStatusContentPreset()
        : WzSubWindowContentPreset(QString(kClassName))
    {
    }
};
