#pragma once

#include "network/SerialisableDataPacketAcceptorInterface.h"
#include "presets/WzClientPreset.h"

#include <QBasicTimer>
#include <QObject>
#include <QStringList>

class ClientPresetInteraction;
class NetworkConnection;
class SerialisableDataPacketDistributor;

/// Gathers the client's state into presets for the server to keep, and gives out what it sends back.
class WzClientPresetManager : public QObject, public SerialisableDataPacketAcceptorInterface {
    Q_OBJECT
public:
    /// A server that knows no such preset may say nothing: after so long the user is free again.
    static constexpr int kAnswerMs = 5000;

    /// What became of a preset that was asked for.
    enum class Answer {
        Came,
        NoSuchPreset,
        None, ///< nothing in time
        ConnectionLost,
    };
    Q_ENUM(Answer)

    WzClientPresetManager(NetworkConnection& connection, SerialisableDataPacketDistributor& distributor,
                          QObject* parent = nullptr);
    ~WzClientPresetManager() override;

    bool canAcceptPacket(const QString& className) const override;
    void acceptPacket(const SerialisableDataPacket& packet) override;

    void setAnswerTimeout(int milliseconds) { m_answerMs = milliseconds; }

    /// The present state of all who have a section.
    WzClientPreset gatherPreset();
    /// Stores @p preset instead of the present state.
    void storePreset(const QString& name, WzClientPreset preset);
    /// Asks for a preset that is not to be loaded: it comes by presetFetched().
    void fetchPreset(const QString& name);

public slots:
    void onCreatePresetRequested(const QString& name);
    void onModifyPresetRequested(const QString& name);
    void onLoadPresetRequested(const QString& name);
    void onDeletePresetRequested(const QString& name);
    void onRenamePresetRequested(const QString& oldName, const QString& newName);
    void onSaveLastKnownStateRequested();

signals:
    /// To be connected directly: each owner of a section adds it, and takes it, while the signal is emitted.
    void populateClientPreset(WzClientPreset& preset);
    void loadClientPreset(WzClientPreset& preset);
    void presetFetched(const WzClientPreset& preset);
    /// Behind either of them, or instead.
    void answered(const QString& name, WzClientPresetManager::Answer answer);
    /// Nothing is to be asked of the user, for a preset is on its way; or it has come.
    void doNotDisturbChanged(bool doNotDisturb);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Waiting { ForNothing, ToLoad, ToFetch };

    void ask(const QString& name, Waiting waiting);
    void takePreset(WzClientPreset& preset);
    void endWaiting(Answer answer);
    void send(const ClientPresetInteraction& interaction);

    NetworkConnection& m_connection;
    SerialisableDataPacketDistributor& m_distributor;
    Waiting m_waiting = Waiting::ForNothing;
    QString m_wanted;
    /// What nobody waits for any more. When it comes after all it must not change the screen.
    QStringList m_givenUp;
    QBasicTimer m_answerTimer;
    int m_answerMs = kAnswerMs;
};
