#pragma once

#include "server/presets/PresetStore.h"

#include <QObject>

class ClientPresetInteraction;

namespace Velmora::Server {

class ClientSession;
class InstrumentServer;

/// Keeps presets for the clients: does what they ask for, tells all of them what there is after each change,
/// and sends a preset to the one who asked for it.
class PresetService : public QObject {
    Q_OBJECT
public:
    /// The preset in which a client keeps the state that it ended with: one for each address that clients
    /// come from, so that they leave each other's alone. Clients know it by this name.
    static constexpr QLatin1String kLastKnownState{"lastKnownState", 14};

    PresetService(InstrumentServer& server, const QString& folder, QObject* parent = nullptr);

    const QStringList& names() const { return m_presets.names(); }

signals:
    void namesChanged();

private:
    void onInteraction(ClientSession& session, const ClientPresetInteraction& interaction);
    void load(ClientSession& session, const QString& name);
    bool create(const ClientPresetInteraction& interaction);
    bool keep(const QString& name, const ClientPresetInteraction& interaction);
    void saveLastKnownState(const ClientSession& session, const ClientPresetInteraction& interaction);
    void sendInventory(ClientSession* only = nullptr);

    InstrumentServer& m_server;
    PresetStore m_presets;
    PresetStore m_lastKnownStates; ///< by the addresses of clients
};

} // namespace Velmora::Server
