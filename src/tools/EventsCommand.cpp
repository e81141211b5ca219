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
    : FollowingCommand(network, options)
{
    connect(&handler, &WzClientSequencePackagedLogPacketHandler::newLogEvent, this, &EventsCommand::onEvent);
}

void EventsCommand::onConnected()
{
    m_replayFilter.onConnected();
    FollowingCommand::onConnected();
}

void EventsCommand::onEvent(EventKind kind, const QDateTime& time, const QString& message)
{
    // What arrived together with the last event asked for is delivered, too.
    if (m_end.hasCome() || m_replayFilter.isRepeat(kind, time, message))
        return;
    restartTimeout();
    if (print(kind, time, message))
        noteShown();
    else
        m_end.come(1);
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

int ToolCommands::events(const ToolContext& context)
{
    EventsCommand command(context.application.getNetworkManager(), context.application.getLogPacketHandler(),
                          FollowingCommand::Options::of(context));
    command.connectToInstrument();
    return QCoreApplication::exec();
}
