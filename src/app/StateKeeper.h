#pragma once

#include "presets/WzClientPresetManager.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

class WzClientNetworkManager;

/// Keeps the state of the client over a restart: in a file of this computer, and on the instrument as the
/// client's last known state. Owns the section "clientSettings" of presets, by which the two are told apart.
///
/// The file is shown as soon as the program starts. The instrument's is asked for on the first connection
/// after the start, never on another one, and shown when it is news: there is no file, or it is this client's
/// own and younger. What the user has done meanwhile always stays.
class StateKeeper : public QObject {
    Q_OBJECT
public:
    /// The shortest time between two looks at whether there is something to be saved.
    static constexpr int kSaveMs = 5000;
    /// The longest that the end of the program waits until the instrument has the last state.
    static constexpr int kFinishMs = 1000;

    StateKeeper(const QString& path, WzClientPresetManager& presets, WzClientNetworkManager& network);

    /// What was saved last; nothing where there is none.
    std::optional<WzClientPreset> loadFile();
    /// What is on the screen now needs no saving. To be called once, when the file is shown.
    void start();

    void onPopulateClientPreset(WzClientPreset& preset) const;

public slots:
    /// To be called by whatever ticks anyway, so that an idle program need not wake up for this.
    void onTick();
    /// Now, if there is something new.
    void save();
    /// The same at the end of the program: returns when the instrument has it, or after a while.
    void finish();

signals:
    /// The instrument's is to be shown.
    void restoreWanted(WzClientPreset& preset);
    void saveLastKnownStateRequested();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// Of the question for what the instrument has.
    enum class Restoring { NotYet, Asked, Over };

    /// The state without the count of how often it was saved.
    QByteArray present();
    void onConnected();
    void onFetched(const WzClientPreset& preset);
    bool isNews(const WzClientPreset& preset) const;
    bool hasUserChangedAnything();
    void send();
    void waitUntilSent();

    const QString m_path;
    WzClientPresetManager& m_presets;
    WzClientNetworkManager& m_network;
    QString m_client; ///< who this is, among the clients of one computer
    int m_revision = 0; ///< counts what was saved
    bool m_hadFile = false;
    bool m_isHeld = false; ///< another state is on its way
    QByteArray m_atStart;
    QByteArray m_saved;
    QByteArray m_sent; ///< over this connection
    Restoring m_restoring = Restoring::NotYet;
    QBasicTimer m_settleTimer;
    QElapsedTimer m_sinceLook;
};
