#pragma once

#include "presets/PresetPacket.h"

/// The sections of a client preset. Their keys belong to their owners, who derive no class but use these
/// through the named values: one small bag of values each, with a class name of its own.
class SectionPreset : public PresetPacket {
public:
    void set(QLatin1String key, const QJsonValue& newValue) { setValue(key, newValue); }
    /// Undefined when it is not there.
    QJsonValue get(QLatin1String key) const { return value(key); }

protected:
    using PresetPacket::PresetPacket;
};

class WzCustomStylePreset : public SectionPreset {
public:
    WzCustomStylePreset()
        : SectionPreset(QStringLiteral("WzCustomStylePreset"))
    {
    }
};

class WzToolBarPreset : public SectionPreset {
public:
    WzToolBarPreset()
        : SectionPreset(QStringLiteral("WzToolBarPreset"))
    {
    }
};

class WzFavouriteShortcutsPreset : public SectionPreset {
public:
    WzFavouriteShortcutsPreset()
        : SectionPreset(QStringLiteral("WzFavouriteShortcutsPreset"))
    {
    }
};

class WzClientSettingsPreset : public SectionPreset {
public:
    WzClientSettingsPreset()
        : SectionPreset(QStringLiteral("WzClientSettingsPreset"))
    {
    }
};

class DisplayMainWindowSettingsPreset : public SectionPreset {
public:
    DisplayMainWindowSettingsPreset()
        : SectionPreset(QStringLiteral("DisplayMainWindowSettingsPreset"))
    {
    }
};
