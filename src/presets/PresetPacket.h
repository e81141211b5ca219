#pragma once

#include "network/SerialisableDataPacket.h"

#include <QJsonValue>

/// Base of the packets that hold saved state. Each value stands under a fixed key and is read only when it is
/// there: presets of other versions lack some keys, and damaged ones hold values of another type. Such a
/// value counts as absent.
class PresetPacket : public SerialisableDataPacket {
protected:
    using SerialisableDataPacket::SerialisableDataPacket;

    bool containsType(QLatin1String key, QJsonValue::Type type) const;
    /// A whole number in the range of the type.
    bool containsInt(QLatin1String key) const;
    bool containsUnsigned(QLatin1String key) const;

    QJsonValue value(QLatin1String key) const { return object().value(key); }
    QString stringValue(QLatin1String key) const { return value(key).toString(); }
    int intValue(QLatin1String key) const;
    quint32 unsignedValue(QLatin1String key) const;

    /// The preset nested under @p key; a default one when there is none of that class.
    template<typename Preset>
    Preset nestedPreset(QLatin1String key) const;
    /// The presets of that class in the array under @p key. Others are left out, with a log line.
    template<typename Preset, typename Container>
    Container nestedPresets(QLatin1String key) const;
    template<typename Container>
    void setNestedPresets(QLatin1String key, const Container& presets);

private:
    std::vector<SerialisableDataPacket> nestedPackets(QLatin1String key) const;
    static void logForeignClass(const QString& found, const QString& expected);
};

template<typename Preset>
Preset PresetPacket::nestedPreset(QLatin1String key) const
{
    bool ok = false;
    return createChildTypePacketFromParentTypePacket<Preset>(extractOtherPacketFromThis(key, ok), ok);
}

template<typename Preset, typename Container>
Container PresetPacket::nestedPresets(QLatin1String key) const
{
    Container presets;
    for (const SerialisableDataPacket& packet : nestedPackets(key)) {
        bool ok = false;
        auto preset = createChildTypePacketFromParentTypePacket<Preset>(packet, ok);
        if (ok)
            presets.push_back(std::move(preset));
        else
            logForeignClass(packet.getPacketClassName(), preset.getPacketClassName());
    }
    return presets;
}

template<typename Container>
void PresetPacket::setNestedPresets(QLatin1String key, const Container& presets)
{
    insertOtherPacketsIntoThis(key, std::vector<SerialisableDataPacket>(presets.begin(), presets.end()));
}
