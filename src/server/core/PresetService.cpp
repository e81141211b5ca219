#include "server/core/PresetService.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "presets/ClientPresetCollection.h"
#include "presets/ClientPresetInteraction.h"
#include "presets/PresetInventory.h"
#include "server/core/ClientSession.h"
#include "server/core/InstrumentServer.h"

namespace Velmora::Server {

using Interaction = ClientPresetInteraction::Interaction;

PresetService::PresetService(InstrumentServer& server, const QString& folder, QObject* parent)
    : QObject(parent)
    , m_server(server)
    , m_presets(folder)
    , m_lastKnownStates(folder + QLatin1Char('/') + kLastKnownState)
{
    m_server.setReceiver(
        ClientPresetInteraction::kClassName,
        [this](ClientSession& session, const SerialisableDataPacket& packet) {
            bool ok = false;
            onInteraction(
                session,
                SerialisableDataPacket::createChildTypePacketFromParentTypePacket<ClientPresetInteraction>(
                    packet, ok));
        });
    connect(&m_server, &InstrumentServer::clientConnected, this, &PresetService::sendInventory);
}

void PresetService::onInteraction(ClientSession& session, const ClientPresetInteraction& interaction)
{
    const QString name = interaction.getPresetName();
    bool hasChanged = false;
    switch (interaction.getInteraction()) {
    case Interaction::LoadPreset:
        load(session, name);
        return;
    case Interaction::SaveLastKnownClientState:
        saveLastKnownState(session, interaction);
        return;
    case Interaction::CreateNewPreset:
        hasChanged = create(interaction);
        break;
    case Interaction::OverwriteExistingPreset:
        hasChanged = keep(name, interaction);
        break;
    case Interaction::UpdateExistingPresetName:
        hasChanged = m_presets.rename(name, interaction.getNewPresetName());
        break;
    case Interaction::DeletePreset:
        hasChanged = m_presets.remove(name);
        break;
    case Interaction::None: {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Client {} wants something of presets that there is not",
                     session.name());
        return;
    }
    }
    // Who has asked for what could not be done learns from it that nothing has changed.
    sendInventory(hasChanged ? nullptr : &session);
}

void PresetService::load(ClientSession& session, const QString& name)
{
    const bool isLastState = name == kLastKnownState;
    const auto count = m_presets.names().size();
    auto preset = isLastState ? m_lastKnownStates.load(session.address()) : m_presets.load(name);
    ClientPresetCollection collection;
    if (preset)
        collection.appendClientPreset(*preset);
    // Also an empty one: whoever waits need wait no longer.
    session.send(collection);
    if (m_presets.names().size() != count)
        sendInventory();
}

/// Where two create one of the same name, that of the first stays.
bool PresetService::create(const ClientPresetInteraction& interaction)
{
    const QString wanted = interaction.getPresetName();
    QString name = wanted;
    for (int number = 2; m_presets.names().contains(name); ++number)
        name = QStringLiteral("%1 (%2)").arg(wanted).arg(number);
    return keep(name, interaction);
}

bool PresetService::keep(const QString& name, const ClientPresetInteraction& interaction)
{
    if (!interaction.containsClientPreset() || name == kLastKnownState) {
        log()->warn("A preset '{}' is not kept: {}", name,
                    interaction.containsClientPreset() ? "the name is taken" : "it did not come");
        return false;
    }
    WzClientPreset preset = interaction.getClientPreset();
    preset.setPresetName(name);
    return m_presets.save(name, preset);
}

void PresetService::saveLastKnownState(const ClientSession& session,
                                       const ClientPresetInteraction& interaction)
{
    if (interaction.containsClientPreset())
        m_lastKnownStates.save(session.address(), interaction.getClientPreset());
}

void PresetService::sendInventory(ClientSession* only)
{
    std::deque<PresetInventory::PresetInventoryItem> items;
    for (const QString& name : m_presets.names())
        items.push_back({name});
    PresetInventory inventory;
    inventory.setPresetInventory(items);
    if (only) {
        only->send(inventory);
        return;
    }
    m_server.sendToAll(inventory);
    emit namesChanged();
}

} // namespace Velmora::Server
