#include "presets/WzClientPresetManager.h"

#include "logging/Logging.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "presets/ClientPresetCollection.h"
#include "presets/ClientPresetInteraction.h"

WzClientPresetManager::WzClientPresetManager(NetworkConnection& connection,
                                             SerialisableDataPacketDistributor& distributor, QObject* parent)
    : QObject(parent)
    , m_connection(connection)
    , m_distributor(distributor)
{
    m_distributor.registerPacketAcceptor(this, QString(ClientPresetCollection::kClassName));
    connect(&m_connection, &NetworkConnection::disconnectedFromHost, this,
            &WzClientPresetManager::endWaiting);
}

WzClientPresetManager::~WzClientPresetManager()
{
    m_distributor.deregisterPacketAcceptor(this);
}

bool WzClientPresetManager::canAcceptPacket(const QString& className) const
{
    return className == ClientPresetCollection::kClassName;
}

void WzClientPresetManager::acceptPacket(const SerialisableDataPacket& packet)
{
    bool ok = false;
    const auto collection =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<ClientPresetCollection>(packet, ok);
    if (!ok)
        return;
    auto preset = SerialisableDataPacket::createChildTypePacketFromParentTypePacket<WzClientPreset>(
        collection.getClientPreset(QString(WzClientPreset::kClassName)), ok);
    if (ok)
        emit loadClientPreset(preset);
    endWaiting();
}

void WzClientPresetManager::timerEvent(QTimerEvent*)
{
    Velmora::log()->warn("The server sent no preset within {} ms", m_answerMs);
    endWaiting();
}

void WzClientPresetManager::endWaiting()
{
    m_answerTimer.stop();
    emit doNotDisturbChanged(false);
}

WzClientPreset WzClientPresetManager::gatherPreset()
{
    WzClientPreset preset;
    emit populateClientPreset(preset);
    return preset;
}

void WzClientPresetManager::onCreatePresetRequested(const QString& name)
{
    ClientPresetInteraction interaction;
    interaction.setupAsCreateNewPresetInteraction(gatherPreset(), name);
    send(interaction);
}

void WzClientPresetManager::onModifyPresetRequested(const QString& name)
{
    ClientPresetInteraction interaction;
    interaction.setupAsOverwriteExistingPresetInteraction(gatherPreset(), name);
    send(interaction);
}

void WzClientPresetManager::onLoadPresetRequested(const QString& name)
{
    emit doNotDisturbChanged(true);
    m_answerTimer.start(m_answerMs, this);
    ClientPresetInteraction interaction;
    interaction.setupAsLoadPresetInteraction(name);
    send(interaction);
}

void WzClientPresetManager::onDeletePresetRequested(const QString& name)
{
    ClientPresetInteraction interaction;
    interaction.setupAsDeletePresetInteraction(name);
    send(interaction);
}

void WzClientPresetManager::onRenamePresetRequested(const QString& oldName, const QString& newName)
{
    ClientPresetInteraction interaction;
    interaction.setupAsUpdateExistingPresetNameInteraction(newName, oldName);
    send(interaction);
}

void WzClientPresetManager::onSaveLastKnownStateRequested()
{
    ClientPresetInteraction interaction;
    interaction.setupAsSaveLastKnownClientStateInteraction(gatherPreset());
    send(interaction);
}

void WzClientPresetManager::send(const ClientPresetInteraction& interaction)
{
    m_connection.acceptPacket(interaction);
}
