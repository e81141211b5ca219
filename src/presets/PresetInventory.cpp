#include "presets/PresetInventory.h"

#include <QJsonArray>

namespace {

/// The list has the name of the packet.
constexpr QLatin1String kInventoryKey = PresetInventory::kClassName;
constexpr QLatin1String kNameKey("Name", 4);
/// Beside the name, where it is known; not every server tells.
constexpr QLatin1String kSavedKey("Saved", 5);
/// The year 9999, so that any date can be shown.
constexpr double kLatestMs = 253'370'764'800'000.0;

qint64 savedMsOf(const QJsonObject& entry)
{
    const double saved = entry.value(kSavedKey).toDouble();
    return saved > 0 && saved < kLatestMs ? static_cast<qint64>(saved) : 0;
}

} // namespace

PresetInventory::PresetInventory()
    : PresetPacket(QString(kClassName))
{
}

void PresetInventory::setPresetInventory(const std::deque<PresetInventoryItem>& items)
{
    QJsonArray array;
    for (const PresetInventoryItem& item : items) {
        QJsonObject entry{{kNameKey, item.name}};
        if (item.savedMs > 0)
            entry.insert(kSavedKey, item.savedMs);
        array.append(entry);
    }
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
    for (const QJsonValue& value : array) {
        const QJsonObject entry = value.toObject();
        const QJsonValue name = entry.value(kNameKey);
        if (name.isString())
            items.push_back({name.toString(), savedMsOf(entry)});
    }
    return items;
}
