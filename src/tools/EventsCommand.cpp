#include "tools/EventsCommand.h"

#include "app/core/WzClientCoreApplicationBase.h"
#include "network/WzClientNetworkManager.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <chrono>

namespace {

QString toJson(EventKind kind, const QString& time, const QString& message)
{
    const QJsonObject object{
        {QStringLiteral("time"), time.isEmpty() ? QJsonValue() : QJsonValue(time)},
        {QStringLiteral("kind"), eventKindName(kind)},
        {QStringLiteral("text"), message},
    };
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// One line, whatever the text: what would end it or control a terminal becomes a blank.
QString toLine(EventKind kind, const QString& time, const QString& message)
{
    QString text = message;
    std::replace_if(
        text.begin(), text.end(), [](QChar unit) { return unit.category() == QChar::Other_Control; },
        QLatin1Char(' '));
    return QStringLiteral("%1 %2 %3")
        .arg(time.isEmpty() ? QStringLiteral("-") : time, eventKindName(kind), text);
}

} // namespace

EventsCommand::EventsCommand(WzClientNetworkManager& network,
                             WzClientSequencePackagedLogPacketHandler& handler, const Options& options)
    : m_network(network)
    , m_options(options)
    , m_server(QStringLiteral("%1:%2").arg(options.host.toString()).arg(NetworkConnection::kServerTcpPort))
{
    connect(&network, &WzClientNetworkManager::connectedToServer, this, &EventsCommand::onConnected);
    connect(&network, &WzClientNetworkManager::connectionToServerLost, this, &EventsCommand::onLost);
    connect(&handler, &WzClientSequencePackagedLogPacketHandler::newLogEvent, this, &EventsCommand::onEvent);
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, &EventsCommand::onTimeout);
}

void EventsCommand::start()
{
    m_network.configureConnectionToServer(m_options.host, true);
    restartTimeout();
    // At once, rather than when the retry timer comes round.
    m_network.onRetryTimerTimeout();
    if (!m_network.getConnectionToServer().isConnectedToHost())
        ToolOutput::say(QStringLiteral("not connected to %1, retrying").arg(m_server));
}

void EventsCommand::onConnected()
{
    m_replayFilter.onConnected();
    ToolOutput::say(QStringLiteral("connected to %1").arg(m_server));
}

void EventsCommand::onLost()
{
    ToolOutput::say(QStringLiteral("connection to %1 lost, retrying").arg(m_server));
}

void EventsCommand::onEvent(EventKind kind, const QDateTime& time, const QString& message)
{
    // What arrived together with the last event asked for is delivered, too.
    if (m_end.hasCome() || m_replayFilter.isRepeat(kind, time, message))
        return;
    restartTimeout();
    if (!print(kind, time, message))
        m_end.come(1);
    else if (++m_printed == m_options.count)
        m_end.come(0);
}

/// A quiet instrument is no failure, one that is not there is.
void EventsCommand::onTimeout()
{
    const bool connected = m_network.getConnectionToServer().isConnectedToHost();
    if (!connected)
        ToolOutput::say(
            QStringLiteral("no connection to %1 for %2 s").arg(m_server).arg(m_options.timeoutSeconds));
    m_end.come(connected ? 0 : 1);
}

bool EventsCommand::print(EventKind kind, const QDateTime& time, const QString& message) const
{
    const QString when = time.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"));
    const QString line = m_options.json ? toJson(kind, when, message) : toLine(kind, when, message);
    return ToolOutput::write(line.toUtf8() + '\n');
}

void EventsCommand::restartTimeout()
{
    if (m_options.timeoutSeconds > 0)
        m_timeout.start(std::chrono::seconds(m_options.timeoutSeconds));
}

int ToolCommands::events(const ToolContext& context)
{
    EventsCommand::Options options;
    options.host = context.host;
    options.json = context.json;
    options.count = context.count;
    if (context.timeout)
        options.timeoutSeconds = static_cast<int>(context.timeout->count());
    EventsCommand command(context.application.getNetworkManager(), context.application.getLogPacketHandler(),
                          options);
    command.start();
    return QCoreApplication::exec();
}
