#pragma once

#include "network/packets/MeterSetReceiver.h"
#include "tools/FollowingCommand.h"
#include "tools/MeterBars.h"

#include <optional>

/// Shows the audio meters of an instrument on standard output, until it is told to end: as bars that are
/// drawn anew in place on a terminal, as text once a second into a pipe, or as a line of JSON for each set of
/// meter packets. When it ends without any set, it has failed.
class MetersCommand : public FollowingCommand {
    Q_OBJECT
public:
    MetersCommand(WzClientNetworkManager& network, const Options& options);
    ~MetersCommand() override;

    /// Opens the UDP port and connects. Returns false, with the reason on standard error, when no port could
    /// be opened.
    [[nodiscard]] bool start();

private:
    bool listenForMeters();
    void onMeters(const MeterSet& meters);
    void onConnected() override;
    void onLost() override;
    void onTimeout() override;
    void draw();
    void print(const QByteArray& text);
    bool saysStates() const { return !m_onTerminal || m_options.json; }

    bool m_onTerminal;
    bool m_drawnBefore = false;
    MeterBars::State m_state = MeterBars::State::NotConnected;
    MeterSet m_shown; ///< the last one finished
    QTimer m_drawTimer;
    QTimer m_staleTimer;
    std::optional<MeterSetReceiver> m_receiver; ///< once a port is open
};
