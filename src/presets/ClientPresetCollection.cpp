#include "presets/ClientPresetCollection.h"

ClientPresetCollection::ClientPresetCollection()
    : PresetPacket(QString(kClassName))
{
}

void ClientPresetCollection::appendClientPreset(const SerialisableDataPacket& packet)
{
    insertOtherPacketIntoThis(packet.getPacketClassName(), packet);
}

bool ClientPresetCollection::containsClientPreset(const QString& key) const
{
    return object().value(key).isObject();
}

SerialisableDataPacket ClientPresetCollection::getClientPreset(const QString& key) const
{
    bool ok = false;
    return extractOtherPacketFromThis(key, ok);
}
