#include "presets/WindowLayoutPreset.h"

#include <QJsonArray>

#include <algorithm>

namespace {

constexpr QLatin1String kLayoutNameKey("layoutName", 10);
constexpr QLatin1String kSubWindowsKey("subWindowPresetArray", 20);
constexpr QLatin1String kOrderKey("subWindowOrderArray", 19);

} // namespace

WindowLayoutPreset::WindowLayoutPreset()
    : PresetPacket(QString(kClassName))
{
}

void WindowLayoutPreset::setLayoutName(const QString& name)
{
    setValue(kLayoutNameKey, name);
}

bool WindowLayoutPreset::containsLayoutName() const
{
    return containsType(kLayoutNameKey, QJsonValue::String);
}

QString WindowLayoutPreset::getLayoutName() const
{
    return stringValue(kLayoutNameKey);
}

void WindowLayoutPreset::setSubWindowPresets(const std::vector<WzSubWindowPreset>& presets)
{
    setNestedPresets(kSubWindowsKey, presets);
}

void WindowLayoutPreset::addSubWindowPreset(const WzSubWindowPreset& preset)
{
    auto presets = getSubWindowPresets();
    presets.push_back(preset);
    setSubWindowPresets(presets);
}

bool WindowLayoutPreset::containsSubWindowPresets() const
{
    return containsType(kSubWindowsKey, QJsonValue::Array);
}

std::vector<WzSubWindowPreset> WindowLayoutPreset::getSubWindowPresets() const
{
    return nestedPresets<WzSubWindowPreset, std::vector<WzSubWindowPreset>>(kSubWindowsKey);
}

int WindowLayoutPreset::subWindowCount() const
{
    return value(kSubWindowsKey).toArray().size();
}

void WindowLayoutPreset::setSubWindowOrder(const std::vector<int>& order)
{
    QJsonArray numbers;
    for (const int index : order)
        numbers.append(index);
    setValue(kOrderKey, numbers);
}

bool WindowLayoutPreset::containsSubWindowOrder() const
{
    return containsType(kOrderKey, QJsonValue::Array);
}

std::vector<int> WindowLayoutPreset::getSubWindowOrder() const
{
    const int windows = subWindowCount();
    std::vector<int> order;
    const QJsonArray numbers = value(kOrderKey).toArray();
    for (const QJsonValue& number : numbers) {
        const int index = number.toInt(-1);
        if (index >= 0 && index < windows && std::find(order.begin(), order.end(), index) == order.end())
            order.push_back(index);
    }
    return order;
}
