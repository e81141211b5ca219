#include "presets/ClientPresetInteraction.h"

namespace {

constexpr QLatin1String kInteractionIdKey("InteractionId", 13);
constexpr QLatin1String kPresetNameKey("PresetName", 10);
constexpr QLatin1String kClientPresetKey("ClientPreset", 12);
constexpr QLatin1String kNewPresetNameKey("NewPresetName", 13);

} // namespace

ClientPresetInteraction::ClientPresetInteraction()
    : PresetPacket(QString(kClassName))
{
}

void ClientPresetInteraction::setupAsLoadPresetInteraction(const QString& name)
{
    setup(Interaction::LoadPreset);
    setValue(kPresetNameKey, name);
}

void ClientPresetInteraction::setupAsCreateNewPresetInteraction(const WzClientPreset& preset,
                                                                const QString& name)
{
    setup(Interaction::CreateNewPreset);
    insertOtherPacketIntoThis(kClientPresetKey, preset);
    setValue(kPresetNameKey, name);
}

void ClientPresetInteraction::setupAsOverwriteExistingPresetInteraction(const WzClientPreset& preset,
                                                                        const QString& name)
{
    setup(Interaction::OverwriteExistingPreset);
    insertOtherPacketIntoThis(kClientPresetKey, preset);
    setValue(kPresetNameKey, name);
}

void ClientPresetInteraction::setupAsUpdateExistingPresetNameInteraction(const QString& newName,
                                                                         const QString& name)
{
    setup(Interaction::UpdateExistingPresetName);
    setValue(kNewPresetNameKey, newName);
    setValue(kPresetNameKey, name);
}

void ClientPresetInteraction::setupAsDeletePresetInteraction(const QString& name)
{
    setup(Interaction::DeletePreset);
    setValue(kPresetNameKey, name);
}

void ClientPresetInteraction::setupAsSaveLastKnownClientStateInteraction(const WzClientPreset& preset)
{
    setup(Interaction::SaveLastKnownClientState);
    insertOtherPacketIntoThis(kClientPresetKey, preset);
}

void ClientPresetInteraction::resetInteractionSetup()
{
    *this = ClientPresetInteraction();
}

ClientPresetInteraction::Interaction ClientPresetInteraction::getInteraction() const
{
    const int id = intValue(kInteractionIdKey);
    const bool isKnown = id >= static_cast<int>(Interaction::LoadPreset)
        && id <= static_cast<int>(Interaction::SaveLastKnownClientState);
    return isKnown ? static_cast<Interaction>(id) : Interaction::None;
}

bool ClientPresetInteraction::containsPresetName() const
{
    return containsType(kPresetNameKey, QJsonValue::String);
}

QString ClientPresetInteraction::getPresetName() const
{
    return stringValue(kPresetNameKey);
}

bool ClientPresetInteraction::containsClientPreset() const
{
    return containsType(kClientPresetKey, QJsonValue::Object);
}

WzClientPreset ClientPresetInteraction::getClientPreset() const
{
    return nestedPreset<WzClientPreset>(kClientPresetKey);
}

bool ClientPresetInteraction::containsNewPresetName() const
{
    return containsType(kNewPresetNameKey, QJsonValue::String);
}

QString ClientPresetInteraction::getNewPresetName() const
{
    return stringValue(kNewPresetNameKey);
}

void ClientPresetInteraction::setup(Interaction interaction)
{
    resetInteractionSetup();
    setValue(kInteractionIdKey, static_cast<int>(interaction));
}
