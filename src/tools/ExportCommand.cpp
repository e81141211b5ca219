#include "tools/MirroredTrees.h"
#include "tools/SettingsFile.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "datacore/ClientDatacore.h"

#include <QJsonObject>

#include <algorithm>

namespace {

/// Roots, and what has children without data of its own, only hold the tree together. An element without
/// children is a setting, also when its list is empty.
bool holdsTreeTogether(const QString& path, const QString& next)
{
    return !path.contains(QLatin1Char('/')) || next.startsWith(path + QLatin1Char('/'));
}

SettingsFile::Settings settingsOf(const MirroredTrees& trees, const QStringList& paths)
{
    SettingsFile::Settings settings;
    for (int i = 0; i < paths.size(); ++i) {
        const QStringList items = trees.node(paths.at(i))->getDataList();
        // Children follow their parent at once.
        if (!items.isEmpty() || !holdsTreeTogether(paths.at(i), paths.value(i + 1)))
            settings.emplace(paths.at(i), items);
    }
    return settings;
}

} // namespace

/// Writes the settings of the instrument into a file.
int ToolCommands::exportSettings(const ToolContext& context)
{
    MirroredTrees trees(context);
    if (!trees.waitForTrees())
        return 1;
    QStringList paths = trees.paths();
    const auto isNone = [](const QString& path) { return !SettingsFile::isSetting(path); };
    paths.erase(std::remove_if(paths.begin(), paths.end(), isNone), paths.end());
    if (!trees.waitForValues(paths))
        return 1;
    const auto settings = settingsOf(trees, paths);
    const QString file = context.arguments.first();
    if (const auto problem = SettingsFile::save(file, settings)) {
        ToolOutput::say(*problem);
        return 1;
    }
    const auto count = static_cast<int>(settings.size());
    if (context.json) {
        const QJsonObject result{{QStringLiteral("file"), file}, {QStringLiteral("exported"), count}};
        return ToolOutput::printLine(result) ? 0 : 1;
    }
    return ToolOutput::printLine(QStringLiteral("%1 settings exported to %2").arg(count).arg(file)) ? 0 : 1;
}
