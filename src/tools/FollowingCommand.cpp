#include "tools/FollowingCommand.h"

#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "network/WzClientNetworkManager.h"

#include <chrono>

FollowingCommand::Options FollowingCommand::Options::of(const ToolContext& context)
{
    Options options;
    options.host = context.host;
    options.json = context.json;
    options.count = context.count;
    if (context.timeout)
        options.timeoutSeconds = static_cast<int>(context.timeout->count());
    return options;
}

FollowingCommand::FollowingCommand(WzClientNetworkManager& network, const Options& options)
    : m_network(network)
    , m_options(options)
    , m_server(QStringLiteral("%1:%2").arg(options.host.toString()).arg(NetworkConnection::kServerTcpPort))
{
    connect(&network, &WzClientNetworkManager::connectedToServer, this, &FollowingCommand::onConnected);
    connect(&network, &WzClientNetworkManager::connectionToServerLost, this, &FollowingCommand::onLost);
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, &FollowingCommand::onTimeout);
}

void FollowingCommand::connectToInstrument()
{
    m_network.configureConnectionToServer(m_options.host, true);
    restartTimeout();
    // Rather than when the retry timer comes round.
    m_network.onRetryTimerTimeout();
    if (!m_network.getConnectionToServer().isConnectedToHost())
        ToolOutput::say(QStringLiteral("not connected to %1, retrying").arg(m_server));
}

void FollowingCommand::noteShown()
{
    if (++m_shownCount == m_options.count)
        m_end.come(0);
}

void FollowingCommand::restartTimeout()
{
    if (m_options.timeoutSeconds > 0)
        m_timeout.start(std::chrono::seconds(m_options.timeoutSeconds));
}

void FollowingCommand::onConnected()
{
    ToolOutput::say(QStringLiteral("connected to %1").arg(m_server));
}

void FollowingCommand::onLost()
{
    ToolOutput::say(QStringLiteral("connection to %1 lost, retrying").arg(m_server));
}
