#pragma once

#include "network/events/EventReplayFilter.h"
#include "tools/LoopEnd.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>

class WzClientNetworkManager;
class WzClientSequencePackagedLogPacketHandler;

/// Prints the instrument's events on standard output, those kept there first and then each as it comes: time,
/// kind and text, or a line of JSON. Goes on after a loss of the connection without printing an event twice.
class EventsCommand : public QObject {
    Q_OBJECT
public:
    struct Options {
        QHostAddress host{QHostAddress::LocalHost};
        bool json = false;
        int count = 0; ///< events after which it ends; 0 for no end
        /// Without any event for so long it ends, and has failed when there is no connection; 0 for never.
        int timeoutSeconds = 0;
    };

    EventsCommand(WzClientNetworkManager& network, WzClientSequencePackagedLogPacketHandler& handler,
                  const Options& options);

    /// Connects; the rest happens in the event loop, which is ended with the exit code.
    void start();

private:
    void onConnected();
    void onLost();
    void onEvent(EventKind kind, const QDateTime& time, const QString& message);
    void onTimeout();
    bool print(EventKind kind, const QDateTime& time, const QString& message) const;
    void restartTimeout();

    WzClientNetworkManager& m_network;
    Options m_options;
    QString m_server;
    EventReplayFilter m_replayFilter;
    QTimer m_timeout;
    int m_printed = 0;
    LoopEnd m_end;
};
