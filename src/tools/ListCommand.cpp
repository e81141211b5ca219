#include "tools/MirroredTrees.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include <QJsonArray>

#include <algorithm>

/// Prints every path that begins with the argument.
int ToolCommands::list(const ToolContext& context)
{
    MirroredTrees trees(context);
    if (!trees.waitForTrees())
        return 1;
    const QString prefix = context.arguments.value(0);
    QStringList paths = trees.paths();
    const auto isOther = [&](const QString& path) { return !path.startsWith(prefix); };
    paths.erase(std::remove_if(paths.begin(), paths.end(), isOther), paths.end());
    if (paths.isEmpty()) {
        ToolOutput::say(QStringLiteral("no path begins with '%1'").arg(prefix));
        return 1;
    }
    if (context.json)
        return ToolOutput::printLine(QJsonArray::fromStringList(paths)) ? 0 : 1;
    return ToolOutput::printLine(paths.join(QLatin1Char('\n'))) ? 0 : 1;
}
