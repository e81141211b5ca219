#pragma once

#include "tools/LoopEnd.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>

class WzClientNetworkManager;
struct ToolContext;

/// Base of the commands that follow an instrument: they show what it sends, also over losses of the
/// connection, and end after so much of it, or when none has come for so long.
class FollowingCommand : public QObject {
    Q_OBJECT
public:
    struct Options {
        QHostAddress host{QHostAddress::LocalHost};
        bool json = false;
        int count = 0; ///< things shown after which it ends; 0 for no end
        int timeoutSeconds = 0; ///< without any thing for so long it ends; 0 for never

        static Options of(const ToolContext& context);
    };

    /// Tries at once, and goes on trying. The rest happens in the event loop, which is ended with the exit
    /// code.
    void connectToInstrument();

protected:
    FollowingCommand(WzClientNetworkManager& network, const Options& options);

    /// One more thing has been shown.
    void noteShown();
    /// Begins to wait for the next thing.
    void restartTimeout();

    virtual void onConnected();
    virtual void onLost();
    /// Nothing has come for as long as the options say.
    virtual void onTimeout() = 0;

    WzClientNetworkManager& m_network;
    const Options m_options;
    const QString m_server;
    LoopEnd m_end;

private:
    QTimer m_timeout;
    int m_shownCount = 0;
};
