#include "tools/MirroredTrees.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "datacore/ClientDatacore.h"

#include <QJsonObject>

/// Prints the items of an element, one a line and as they are.
int ToolCommands::get(const ToolContext& context)
{
    MirroredTrees trees(context);
    const QString path = context.arguments.first();
    if (!trees.waitForValue(path))
        return 1;
    const ClientDatacore& node = *trees.node(path);
    if (context.json)
        return ToolOutput::printLine(MirroredTrees::toJson(node)) ? 0 : 1;
    QByteArray text;
    for (const QString& value : node.getDataList())
        text += value.toUtf8() + '\n';
    return ToolOutput::write(text) ? 0 : 1;
}
