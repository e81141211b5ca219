#pragma once

#include "network/packets/MeterSetReceiver.h"
#include "tools/LoopEnd.h"
#include "tools/MeterBars.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>

#include <optional>

class WzClientNetworkManager;

/// Shows the audio meters of an instrument on standard output, until it is told to end: as bars that are
/// drawn anew in place on a terminal, as text once a second into a pipe, or as a line of JSON for each set of
/// meter packets.
class MetersCommand : public QObject {
    Q_OBJECT
public:
    struct Options {
        QHostAddress host{QHostAddress::LocalHost};
        bool json = false;
        int count = 0; ///< sets after which it ends; 0 for no end
        int timeoutSeconds = 0; ///< without any set for so long it fails; 0 for never
    };

    MetersCommand(WzClientNetworkManager& network, const Options& options);
    ~MetersCommand() override;

    /// Opens the UDP port and connects. Returns false, with the reason on standard error, when no port could
    /// be opened.
    [[nodiscard]] bool start();

private:
    bool listenForMeters();
    void onMeters(const MeterSet& meters);
    void onConnected();
    void onLost();
    void draw();
    void print(const QByteArray& text);
    void fail(const QString& problem);
    void restartTimeout();

    WzClientNetworkManager& m_network;
    Options m_options;
    QString m_server;
    bool m_onTerminal;
    bool m_drawnBefore = false;
    LoopEnd m_end;
    int m_setsSeen = 0;
    MeterBars::State m_state = MeterBars::State::NotConnected;
    MeterSet m_shown; ///< the last one finished
    QTimer m_drawTimer;
    QTimer m_staleTimer;
    QTimer m_timeout;
    std::optional<MeterSetReceiver> m_receiver; ///< once a port is open
};
