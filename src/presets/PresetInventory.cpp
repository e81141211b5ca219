#include "presets/PresetInventory.h"

#include <QJsonArray>

namespace {

/// The list has the name of the packet.
constexpr QLatin1String kInventoryKey = PresetInventory::kClassName;
constexpr QLatin1String kNameKey("Name", 4);

} // namespace

PresetInventory::PresetInventory()
    : PresetPacket(QString(kClassName))
{
}

void PresetInventory::setPresetInventory(const std::deque<PresetInventoryItem>& items)
{
    QJsonArray array;
    for (const PresetInventoryItem& item : items)
        array.append(QJsonObject{{kNameKey, item.name}});
    setValue(kInventoryKey, array);
}

bool PresetInventory::containsPresetInventory() const
{
    return containsType(kInventoryKey, QJsonValue::Array);
}

std::deque<PresetInventory::PresetInventoryItem> PresetInventory::getPresetInventoryItems() const
{
    std::deque<PresetInventoryItem> items;
    const QJsonArray array = value(kInventoryKey).toArray();
    for (const QJsonValue& entry : array) {
        const QJsonValue name = entry.toObject().value(kNameKey);
        if (name.isString())
            items.push_back({name.toString()});
    }
    return items;
}
