#include "tools/MirroredTrees.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "datacore/ClientDatacore.h"

#include <QJsonObject>

/// Writes an element and waits for the echo; fails when the instrument has kept another value or calls this
/// one invalid. As JSON it prints the element as it is then.
int ToolCommands::set(const ToolContext& context)
{
    MirroredTrees trees(context);
    const QString path = context.arguments.first();
    if (!trees.waitForValue(path))
        return 1;
    const auto result = trees.write(path, context.arguments.mid(1));
    const bool taken = result.outcome == MirroredTrees::Outcome::Taken;
    if (!taken)
        ToolOutput::say(result.problem);
    const ClientDatacore* const node = trees.node(path);
    if (context.json && node) {
        QJsonObject object = MirroredTrees::toJson(*node);
        object.insert(QStringLiteral("taken"), taken);
        if (!ToolOutput::printLine(object))
            return 1;
    }
    return taken ? 0 : 1;
}
