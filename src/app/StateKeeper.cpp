#include "app/StateKeeper.h"

#include "logging/Logging.h"
#include "network/WzClientNetworkManager.h"
#include "presets/PresetFile.h"
#include "presets/PresetHelper.h"

#include <QEventLoop>
#include <QScopedValueRollback>
#include <QTimer>
#include <QUuid>

namespace {

constexpr QLatin1String kClientKey("client", 6);
constexpr QLatin1String kRevisionKey("revision", 8);
/// Windows find their places for a moment after they were shown, which is nothing that the user has done.
constexpr int kSettleMs = 500;

QString lastKnownState()
{
    return QString(PresetHelper::kLastKnownState);
}

QString clientOf(const WzClientPreset& preset)
{
    return preset.getClientSettingsPreset().get(kClientKey).toString();
}

int revisionOf(const WzClientPreset& preset)
{
    return preset.getClientSettingsPreset().get(kRevisionKey).toInt();
}

} // namespace

StateKeeper::StateKeeper(const QString& path, WzClientPresetManager& presets, WzClientNetworkManager& network)
    : m_path(path)
    , m_presets(presets)
    , m_network(network)
    , m_client(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    connect(&network, &WzClientNetworkManager::connectedToServer, this, &StateKeeper::onConnected);
    connect(&network, &WzClientNetworkManager::connectionToServerLost, this, [this] { m_sent.clear(); });
    connect(&presets, &WzClientPresetManager::doNotDisturbChanged, this, [this](bool on) { m_isHeld = on; });
    connect(&presets, &WzClientPresetManager::presetFetched, this, &StateKeeper::onFetched);
    connect(&presets, &WzClientPresetManager::answered, this, [this](const QString& name) {
        if (m_restoring == Restoring::Asked && name == lastKnownState())
            m_restoring = Restoring::Over;
    });
}

std::optional<WzClientPreset> StateKeeper::loadFile()
{
    const auto preset = PresetFile::load(m_path);
    m_hadFile = preset.has_value();
    if (preset && !clientOf(*preset).isEmpty()) {
        m_client = clientOf(*preset);
        m_revision = qMax(0, revisionOf(*preset));
    }
    return preset;
}

void StateKeeper::start()
{
    m_settleTimer.start(kSettleMs, this);
    m_sinceLook.start();
}

void StateKeeper::onTick()
{
    if (m_isHeld || !m_sinceLook.isValid() || !m_sinceLook.hasExpired(kSaveMs))
        return;
    m_sinceLook.start();
    save();
}

void StateKeeper::timerEvent(QTimerEvent*)
{
    m_settleTimer.stop();
    m_atStart = present();
    if (m_hadFile)
        m_saved = m_atStart;
}

QByteArray StateKeeper::present()
{
    const QScopedValueRollback uncounted(m_revision, 0);
    return m_presets.gatherPreset().serialise();
}

void StateKeeper::onPopulateClientPreset(WzClientPreset& preset) const
{
    WzClientSettingsPreset section;
    section.set(kClientKey, m_client);
    section.set(kRevisionKey, m_revision);
    preset.setClientSettingsPreset(section);
}

// --- Restoring

void StateKeeper::onConnected()
{
    if (m_restoring != Restoring::NotYet)
        return;
    m_restoring = Restoring::Asked;
    m_presets.fetchPreset(lastKnownState());
}

void StateKeeper::onFetched(const WzClientPreset& preset)
{
    if (m_restoring != Restoring::Asked)
        return;
    m_restoring = Restoring::Over;
    if (!isNews(preset))
        return;
    if (hasUserChangedAnything()) {
        Velmora::log()->info("The last known state comes after the user has begun: left out");
        return;
    }
    WzClientPreset restored = preset;
    emit restoreWanted(restored);
    m_atStart = present();
}

/// The instrument keeps one state for each address, so it may be that of another client of this computer.
bool StateKeeper::isNews(const WzClientPreset& preset) const
{
    const QString client = clientOf(preset);
    return !m_hadFile || client.isEmpty() || (client == m_client && revisionOf(preset) > m_revision);
}

bool StateKeeper::hasUserChangedAnything()
{
    return !m_atStart.isEmpty() && present() != m_atStart;
}

// --- Saving

void StateKeeper::save()
{
    if (const QByteArray now = present(); now != m_saved) {
        m_saved = now;
        ++m_revision;
        PresetFile::save(m_path, m_presets.gatherPreset());
    }
    send();
}

void StateKeeper::send()
{
    const bool isConnected = m_network.getConnectionToServer().isConnectedToHost();
    // Not before it is known what the instrument has: it would be lost.
    if (!isConnected || m_restoring != Restoring::Over || m_saved == m_sent)
        return;
    m_sent = m_saved;
    emit saveLastKnownStateRequested();
}

void StateKeeper::finish()
{
    m_sinceLook.invalidate();
    const QByteArray sentBefore = m_sent;
    save();
    if (m_sent != sentBefore)
        waitUntilSent();
}

/// The answer to whatever is asked next says that all before has arrived. A connection that is just closed
/// may take with it what has not been read yet.
void StateKeeper::waitUntilSent()
{
    QEventLoop loop;
    bool isAnswered = false;
    connect(&m_presets, &WzClientPresetManager::answered, &loop,
            [&loop, &isAnswered](const QString& name, WzClientPresetManager::Answer answer) {
                if (name != lastKnownState())
                    return;
                isAnswered = answer == WzClientPresetManager::Answer::Came;
                loop.quit();
            });
    QTimer::singleShot(kFinishMs, &loop, &QEventLoop::quit);
    m_presets.fetchPreset(lastKnownState());
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!isAnswered)
        Velmora::log()->warn("Whether the instrument has the last state is not known");
}
