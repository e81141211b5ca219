#include "tools/MirroredTrees.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "datacore/ClientDatacore.h"

#include <QJsonObject>

/// Returns when the element has a value.
int ToolCommands::wait(const ToolContext& context)
{
    MirroredTrees trees(context);
    const QString path = context.arguments.first();
    if (!trees.waitForElement(path))
        return 1;
    return !context.json || ToolOutput::printLine(MirroredTrees::toJson(*trees.node(path))) ? 0 : 1;
}
