#include "tools/WatchCommand.h"

#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "network/WzClientNetworkManager.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QTime>

WatchCommand::WatchCommand(const ToolContext& context)
    : m_context(context)
    , m_trees(context)
{
    connect(&m_trees.registry(), &ClientDatacoreRegistry::registryHasBeenPopulated, this,
            &WatchCommand::follow);
    connect(&m_trees.network(), &WzClientNetworkManager::connectionToServerLost, this,
            [] { ToolOutput::say(QStringLiteral("connection lost, retrying")); });
}

int WatchCommand::run()
{
    m_allFound = m_trees.waitForValues(m_context.arguments);
    if (!m_allFound)
        return 1;
    // The first values count, and come while they are waited for.
    return m_exitCode ? *m_exitCode : QCoreApplication::exec();
}

/// The nodes are other ones after each connection.
void WatchCommand::follow()
{
    for (const QString& path : m_context.arguments) {
        if (const ClientDatacore* const node = m_trees.node(path))
            connect(node, &ClientDatacore::datacoreUpdated, this, [this, node] { onChanged(*node); });
    }
}

void WatchCommand::onChanged(const ClientDatacore& node)
{
    // What arrived together with the last change asked for is delivered, too.
    if (m_exitCode)
        return;
    if (!print(node))
        finish(1);
    else if (++m_changes == m_context.count)
        finish(0);
}

bool WatchCommand::print(const ClientDatacore& node) const
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    if (m_context.json) {
        QJsonObject object = MirroredTrees::toJson(node);
        object.insert(QStringLiteral("time"), time);
        return ToolOutput::printLine(object);
    }
    const QStringList parts{time, node.getDatacorePathOnServer(), node.getDataList().join(QLatin1Char(' '))};
    return ToolOutput::printLine(
        ToolOutput::printable(parts.join(QLatin1Char(' ')) + MirroredTrees::marksOf(node)));
}

void WatchCommand::finish(int exitCode)
{
    m_exitCode = exitCode;
    // Not the loop of a wait, which would take it for the end of its time.
    if (m_allFound)
        QCoreApplication::exit(exitCode);
}

int ToolCommands::watch(const ToolContext& context)
{
    return WatchCommand(context).run();
}
