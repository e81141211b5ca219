#include "presets/WzClientPresetManager.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "presets/ClientPresetCollection.h"
#include "presets/ClientPresetInteraction.h"
#include "presets/PresetHelper.h"

#include <utility>

WzClientPresetManager::WzClientPresetManager(NetworkConnection& connection,
                                             SerialisableDataPacketDistributor& distributor, QObject* parent)
    : QObject(parent)
    , m_connection(connection)
    , m_distributor(distributor)
{
    m_distributor.registerPacketAcceptor(this, QString(ClientPresetCollection::kClassName));
    connect(&m_connection, &NetworkConnection::disconnectedFromHost, this, [this] {
        endWaiting(Answer::ConnectionLost);
        m_givenUp.clear();
    });
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
        takePreset(preset);
    else
        endWaiting(Answer::NoSuchPreset);
}

void WzClientPresetManager::takePreset(WzClientPreset& preset)
{
    const QString name = preset.getPresetName();
    if (name != m_wanted && m_givenUp.removeOne(name)) {
        Velmora::log()->warn("Preset \"{}\" comes too late: left out", name);
        return;
    }
    // Also one that nobody asked for here: the instrument may be told by others what to show. What is waited
    // for need not hold the name that it is stored under, since a server may rename it from outside.
    if (m_waiting == Waiting::ToFetch)
        emit presetFetched(preset);
    else
        emit loadClientPreset(preset);
    endWaiting(Answer::Came);
}

void WzClientPresetManager::timerEvent(QTimerEvent*)
{
    Velmora::log()->warn("The server sent no preset within {} ms", m_answerMs);
    m_givenUp << m_wanted;
    endWaiting(Answer::None);
}

void WzClientPresetManager::ask(const QString& name, Waiting waiting)
{
    if (m_waiting != Waiting::ForNothing) {
        m_givenUp << m_wanted;
        endWaiting(Answer::None);
    }
    m_givenUp.removeAll(name);
    m_waiting = waiting;
    m_wanted = name;
    m_answerTimer.start(m_answerMs, this);
    if (waiting == Waiting::ToLoad)
        emit doNotDisturbChanged(true);
    ClientPresetInteraction interaction;
    interaction.setupAsLoadPresetInteraction(name);
    send(interaction);
}

void WzClientPresetManager::endWaiting(Answer answer)
{
    m_answerTimer.stop();
    const bool wasWaiting = std::exchange(m_waiting, Waiting::ForNothing) != Waiting::ForNothing;
    const QString name = std::exchange(m_wanted, QString());
    emit doNotDisturbChanged(false);
    if (wasWaiting)
        emit answered(name, answer);
}

WzClientPreset WzClientPresetManager::gatherPreset()
{
    WzClientPreset preset;
    emit populateClientPreset(preset);
    return preset;
}

void WzClientPresetManager::storePreset(const QString& name, WzClientPreset preset)
{
    preset.setPresetName(name);
    ClientPresetInteraction interaction;
    interaction.setupAsCreateNewPresetInteraction(preset, name);
    send(interaction);
}

void WzClientPresetManager::onCreatePresetRequested(const QString& name)
{
    storePreset(name, gatherPreset());
}

void WzClientPresetManager::onModifyPresetRequested(const QString& name)
{
    WzClientPreset preset = gatherPreset();
    preset.setPresetName(name);
    ClientPresetInteraction interaction;
    interaction.setupAsOverwriteExistingPresetInteraction(preset, name);
    send(interaction);
}

void WzClientPresetManager::onLoadPresetRequested(const QString& name)
{
    ask(name, Waiting::ToLoad);
}

void WzClientPresetManager::fetchPreset(const QString& name)
{
    ask(name, Waiting::ToFetch);
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
    WzClientPreset preset = gatherPreset();
    preset.setPresetName(QString(PresetHelper::kLastKnownState));
    ClientPresetInteraction interaction;
    interaction.setupAsSaveLastKnownClientStateInteraction(preset);
    send(interaction);
}

void WzClientPresetManager::send(const ClientPresetInteraction& interaction)
{
    m_connection.acceptPacket(interaction);
}
