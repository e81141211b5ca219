#include "tools/MirroredTrees.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "datacore/ClientDatacore.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

constexpr int kIndentation = 2;

/// "  name: value, value (Class) [marks]"
QString lineOf(const ClientDatacore& node, int depth)
{
    QString line(kIndentation * depth, QLatin1Char(' '));
    line += node.getInstanceName();
    if (!node.getDataList().isEmpty())
        line += QLatin1String(": ") + node.getDataList().join(QStringLiteral(", "));
    if (!node.getClassName().isEmpty())
        line += QLatin1String(" (") + node.getClassName() + QLatin1Char(')');
    return ToolOutput::printable(line + MirroredTrees::marksOf(node));
}

/// Without an argument all of them; otherwise the element and what is below it.
QStringList chosen(const QStringList& paths, const QString& top)
{
    if (top.isEmpty())
        return paths;
    QStringList result;
    for (const QString& path : paths) {
        if (path == top || path.startsWith(top + QLatin1Char('/')))
            result << path;
    }
    return result;
}

} // namespace

/// Prints the elements with their values and states: an indented tree, or JSON with one object each.
int ToolCommands::tree(const ToolContext& context)
{
    MirroredTrees trees(context);
    if (!trees.waitForTrees())
        return 1;
    const QString top = context.arguments.value(0);
    const QStringList paths = chosen(trees.paths(), top);
    if (paths.isEmpty()) {
        ToolOutput::say(QStringLiteral("there is no element '%1'").arg(top));
        return 1;
    }
    if (!trees.waitForValues(paths))
        return 1;
    QStringList lines;
    QJsonArray array;
    const int topDepth = top.count(QLatin1Char('/'));
    for (const QString& path : paths) {
        const ClientDatacore& node = *trees.node(path);
        if (context.json)
            array << MirroredTrees::toJson(node);
        else
            lines << lineOf(node, path.count(QLatin1Char('/')) - topDepth);
    }
    const bool printed =
        context.json ? ToolOutput::printLine(array) : ToolOutput::printLine(lines.join(QLatin1Char('\n')));
    return printed ? 0 : 1;
}
