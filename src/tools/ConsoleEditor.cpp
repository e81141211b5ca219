#include "tools/ConsoleEditor.h"

#include "commands/CommandTable.h"
#include "remote/WzExternalApi.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QStringList>

#include <editline/readline.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr int kMostEntries = 1000;
constexpr char kPrompt[] = "wz> ";

QStringList numberedNames()
{
    QStringList names;
    for (const CommandTable::Entry& entry : CommandTable::entries()) {
        if (entry.place != CommandTable::Place::Nobody)
            names << QString::fromLatin1(entry.name);
    }
    return names;
}

/// Called with a rising @p state for one candidate after the other, until there is none. The library frees
/// what it gets.
char* nextOf(const QStringList& names, const char* begun, int state)
{
    static int next = 0;
    if (state == 0)
        next = 0;
    while (next < names.size()) {
        const QString& name = names.at(next++);
        if (name.startsWith(QString::fromUtf8(begun)))
            return ::strdup(qPrintable(name));
    }
    return nullptr;
}

char* nextCommand(const char* begun, int state)
{
    static const QStringList names = WzExternalApi::commandNames()
        << QStringLiteral("help") << QStringLiteral("quit");
    return nextOf(names, begun, state);
}

char* nextNumbered(const char* begun, int state)
{
    static const QStringList names = numberedNames();
    return nextOf(names, begun, state);
}

char** complete(const char* begun, int start, int /*end*/)
{
    rl_attempted_completion_over = 1; // else it goes on with the names of files
    return rl_completion_matches(begun, start == 0 ? nextCommand : nextNumbered);
}

} // namespace

ConsoleEditor::ConsoleEditor()
{
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QLatin1String("/wz_console");
    QDir().mkpath(folder);
    m_historyFile = QFile::encodeName(folder + QLatin1String("/history"));
    rl_attempted_completion_function = complete;
    using_history();
    stifle_history(kMostEntries);
    read_history(m_historyFile.constData());
}

ConsoleEditor::~ConsoleEditor()
{
    write_history(m_historyFile.constData());
}

std::optional<QString> ConsoleEditor::readLine()
{
    char* const text = readline(kPrompt);
    if (!text)
        return std::nullopt;
    const QString line = QString::fromUtf8(text).trimmed();
    if (!line.isEmpty())
        add_history(text);
    std::free(text);
    return line;
}
