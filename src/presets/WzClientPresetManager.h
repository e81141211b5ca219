#pragma once

#include "network/SerialisableDataPacketAcceptorInterface.h"

#include <QBasicTimer>
#include <QObject>

class ClientPresetInteraction;
class NetworkConnection;
class SerialisableDataPacketDistributor;
class WzClientPreset;

/// Gathers the client's state into presets for the server to keep, and gives out what it sends back.
class WzClientPresetManager : public QObject, public SerialisableDataPacketAcceptorInterface {
    Q_OBJECT
public:
    WzClientPresetManager(NetworkConnection& connection, SerialisableDataPacketDistributor& distributor,
                          QObject* parent = nullptr);
    ~WzClientPresetManager() override;

    bool canAcceptPacket(const QString& className) const override;
    void acceptPacket(const SerialisableDataPacket& packet) override;

    /// A server that knows no such preset may say nothing: after so long the user is free again.
    void setAnswerTimeout(int milliseconds) { m_answerMs = milliseconds; }

    /// The present state of all who have a section.
    WzClientPreset gatherPreset();

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
    /// Nothing is to be asked of the user, for a preset is on its way; or it has come.
    void doNotDisturbChanged(bool doNotDisturb);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void endWaiting();
    void send(const ClientPresetInteraction& interaction);

    NetworkConnection& m_connection;
    SerialisableDataPacketDistributor& m_distributor;
    QBasicTimer m_answerTimer;
    int m_answerMs = 5000;
};
