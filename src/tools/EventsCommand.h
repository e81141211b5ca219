#pragma once

#include "network/events/EventReplayFilter.h"
#include "tools/FollowingCommand.h"

class WzClientSequencePackagedLogPacketHandler;

/// Prints the instrument's events on standard output, those kept there first and then each as it comes: time,
/// kind and text, or a line of JSON. Goes on after a loss of the connection without printing an event twice.
/// When it ends without any event, it has failed if there is no connection.
class EventsCommand : public FollowingCommand {
    Q_OBJECT
public:
    EventsCommand(WzClientNetworkManager& network, WzClientSequencePackagedLogPacketHandler& handler,
                  const Options& options);

private:
    void onConnected() override;
    void onEvent(EventKind kind, const QDateTime& time, const QString& message);
    void onTimeout() override;
    bool print(EventKind kind, const QDateTime& time, const QString& message) const;

    EventReplayFilter m_replayFilter;
};
