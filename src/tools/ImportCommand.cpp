#include "tools/MirroredTrees.h"
#include "tools/SettingsFile.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>

using namespace std::chrono_literals;

namespace {

constexpr auto kProgressInterval = 1s;

/// How the writing of settings has gone; every path that was not taken is in one of the lists.
struct ImportResult {
    int total = 0;
    int written = 0;
    QStringList refused;
    QStringList unknown;
    QStringList unanswered;

    bool isWhole() const { return written == total; }

    QJsonObject toJson() const
    {
        return {{QStringLiteral("total"), total},
                {QStringLiteral("written"), written},
                {QStringLiteral("refused"), QJsonArray::fromStringList(refused)},
                {QStringLiteral("unknown"), QJsonArray::fromStringList(unknown)},
                {QStringLiteral("unanswered"), QJsonArray::fromStringList(unanswered)}};
    }
    QString toText() const
    {
        QString text = QStringLiteral("%1 of %2 settings written").arg(written).arg(total);
        if (!refused.isEmpty())
            text += QStringLiteral(", %1 refused").arg(refused.size());
        if (!unknown.isEmpty())
            text += QStringLiteral(", %1 unknown").arg(unknown.size());
        return text;
    }
};

void importOne(MirroredTrees& trees, const QString& path, const QStringList& items, ImportResult& result)
{
    if (!SettingsFile::isSetting(path)) {
        // Commands act and states are measured; neither is brought back from a file.
        result.refused << path;
        ToolOutput::say(QStringLiteral("%1 is no setting").arg(path));
        return;
    }
    // They are gone for as long as a lost connection takes to come back.
    if (!trees.waitForTrees()) {
        result.unanswered << path;
        return;
    }
    if (!trees.node(path)) {
        result.unknown << path;
        ToolOutput::say(QStringLiteral("there is no element '%1'").arg(path));
        return;
    }
    const auto written = trees.write(path, items);
    if (written.outcome == MirroredTrees::Outcome::Taken) {
        ++result.written;
        return;
    }
    ToolOutput::say(written.problem);
    (written.outcome == MirroredTrees::Outcome::Unanswered ? result.unanswered : result.refused) << path;
}

ImportResult importAll(MirroredTrees& trees, const SettingsFile::Settings& settings)
{
    ImportResult result;
    result.total = static_cast<int>(settings.size());
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    for (const auto& [path, items] : settings) {
        importOne(trees, path, items, result);
        // Those that are left would wait as long, each.
        if (!result.unanswered.isEmpty())
            break;
        if (sinceProgress.hasExpired(std::chrono::milliseconds(kProgressInterval).count())) {
            sinceProgress.start();
            ToolOutput::say(result.toText());
        }
    }
    return result;
}

} // namespace

/// Writes the settings of a file into the instrument, one after the other. Goes on past those that it does
/// not take, and fails when there was any.
int ToolCommands::importSettings(const ToolContext& context)
{
    QString problem;
    const auto settings = SettingsFile::load(context.arguments.first(), problem);
    if (!settings) {
        ToolOutput::say(problem);
        return 1;
    }
    MirroredTrees trees(context);
    if (!trees.waitForTrees())
        return 1;
    const ImportResult result = importAll(trees, *settings);
    const bool printed =
        context.json ? ToolOutput::printLine(result.toJson()) : ToolOutput::printLine(result.toText());
    return printed && result.isWhole() ? 0 : 1;
}
