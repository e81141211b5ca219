#include "presets/WzClientPreset.h"

namespace {

constexpr QLatin1String kPresetNameKey("presetName", 10);
constexpr QLatin1String kStyleKey("style", 5);
constexpr QLatin1String kToolBarKey("toolBar", 7);
constexpr QLatin1String kFavouriteShortcutsKey("favouriteShortcuts", 18);
constexpr QLatin1String kClientSettingsKey("clientSettings", 14);
constexpr QLatin1String kMainWindowKey("displayMainWindowSettings", 25);
constexpr QLatin1String kSubWindowsKey("subWindowPresetArray", 20);
constexpr QLatin1String kLayoutsKey("windowLayoutPresetArray", 23);

} // namespace

WzClientPreset::WzClientPreset()
    : PresetPacket(QString(kClassName))
{
}

void WzClientPreset::setPresetName(const QString& name)
{
    setValue(kPresetNameKey, name);
}

bool WzClientPreset::containsPresetName() const
{
    return containsType(kPresetNameKey, QJsonValue::String);
}

QString WzClientPreset::getPresetName() const
{
    return stringValue(kPresetNameKey);
}

void WzClientPreset::setWzCustomStylePreset(const WzCustomStylePreset& preset)
{
    insertOtherPacketIntoThis(kStyleKey, preset);
}

bool WzClientPreset::containsWzCustomStylePreset() const
{
    return containsType(kStyleKey, QJsonValue::Object);
}

WzCustomStylePreset WzClientPreset::getWzCustomStylePreset() const
{
    return nestedPreset<WzCustomStylePreset>(kStyleKey);
}

void WzClientPreset::setToolBarPresets(const WzToolBarPreset& preset)
{
    insertOtherPacketIntoThis(kToolBarKey, preset);
}

bool WzClientPreset::containsToolBarPresets() const
{
    return containsType(kToolBarKey, QJsonValue::Object);
}

WzToolBarPreset WzClientPreset::getToolBarPresets() const
{
    return nestedPreset<WzToolBarPreset>(kToolBarKey);
}

void WzClientPreset::setFavouriteShortcutsPresets(const WzFavouriteShortcutsPreset& preset)
{
    insertOtherPacketIntoThis(kFavouriteShortcutsKey, preset);
}

bool WzClientPreset::containsFavouriteShortcutsPresets() const
{
    return containsType(kFavouriteShortcutsKey, QJsonValue::Object);
}

WzFavouriteShortcutsPreset WzClientPreset::getFavouriteShortcutsPresets() const
{
    return nestedPreset<WzFavouriteShortcutsPreset>(kFavouriteShortcutsKey);
}

void WzClientPreset::setClientSettingsPreset(const WzClientSettingsPreset& preset)
{
    insertOtherPacketIntoThis(kClientSettingsKey, preset);
}

bool WzClientPreset::containsClientSettingsPreset() const
{
    return containsType(kClientSettingsKey, QJsonValue::Object);
}

WzClientSettingsPreset WzClientPreset::getClientSettingsPreset() const
{
    return nestedPreset<WzClientSettingsPreset>(kClientSettingsKey);
}

void WzClientPreset::setDisplayMainWindowSettingsPreset(const DisplayMainWindowSettingsPreset& preset)
{
    insertOtherPacketIntoThis(kMainWindowKey, preset);
}

bool WzClientPreset::containsDisplayMainWindowSettingsPreset() const
{
    return containsType(kMainWindowKey, QJsonValue::Object);
}

DisplayMainWindowSettingsPreset WzClientPreset::getDisplayMainWindowSettingsPreset() const
{
    return nestedPreset<DisplayMainWindowSettingsPreset>(kMainWindowKey);
}

void WzClientPreset::setSubWindowPresets(const std::vector<WzSubWindowPreset>& presets)
{
    setNestedPresets(kSubWindowsKey, presets);
}

bool WzClientPreset::containsSubWindowPresets() const
{
    return containsType(kSubWindowsKey, QJsonValue::Array);
}

std::vector<WzSubWindowPreset> WzClientPreset::getSubWindowPresets() const
{
    return nestedPresets<WzSubWindowPreset, std::vector<WzSubWindowPreset>>(kSubWindowsKey);
}

void WzClientPreset::setWindowLayoutPresets(const std::deque<WindowLayoutPreset>& layouts)
{
    setNestedPresets(kLayoutsKey, layouts);
}

bool WzClientPreset::containsWindowLayoutPresets() const
{
    return containsType(kLayoutsKey, QJsonValue::Array);
}

std::deque<WindowLayoutPreset> WzClientPreset::getWindowLayoutPresets() const
{
    return nestedPresets<WindowLayoutPreset, std::deque<WindowLayoutPreset>>(kLayoutsKey);
}
