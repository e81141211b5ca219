#include "app/core/CommandLine.h"
#include "commands/CommandTable.h"
#include "remote/ConsoleProtocol.h"
#include "remote/WzExternalApi.h"
#include "tools/ConsoleClient.h"
#include "tools/ConsoleEditor.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <limits>
#include <string>

namespace {

constexpr char kName[] = "wz_console";
constexpr char kUsage[] =
    "Usage: wz_console [options] [COMMAND [ARGUMENT...]]\n"
    "Sends a command line to the display client that runs, and prints its answer. Without a command the "
    "lines "
    "come\n"
    "from standard input; on a terminal with history (arrow up) and completion (Tab).\n"
    "  help                 lists the commands, and the numbered ones for \"execute\"\n"
    "  execute NAME         as \"execute NUMBER\"\n"
    "Options:\n"
    "  --socket PATH        where the display client listens (its -Dconsole)\n"
    "  --timeout SECONDS    how long to wait for a display client, and for an answer (10; 0: for ever)\n"
    "  --help               this text\n"
    "  --version            the version\n"
    "Arguments that begin with a dash stand behind \"--\". Exit code: 0 done, 1 not done, 2 wrong usage. Of "
    "several\n"
    "lines all are sent, and one that was not done makes it 1.\n";

struct Options {
    QString socket;
    std::chrono::milliseconds timeLimit{};
    QString line;
};

Options readOptions()
{
    QCommandLineParser parser;
    const QCommandLineOption socket(QStringLiteral("socket"), {}, QStringLiteral("PATH"));
    const QCommandLineOption timeout(QStringLiteral("timeout"), {}, QStringLiteral("SECONDS"),
                                     QStringLiteral("10"));
    parser.addOptions({socket, timeout});
    if (!parser.parse(QCoreApplication::arguments()))
        CommandLine::failUsage(kName, parser.errorText());
    bool ok = false;
    const int seconds = parser.value(timeout).toInt(&ok);
    if (!ok || seconds < 0 || seconds > std::numeric_limits<int>::max() / 1000)
        CommandLine::failUsage(kName,
                               QStringLiteral("'%1' is no number for --timeout").arg(parser.value(timeout)));
    const QString path = parser.isSet(socket) ? QFileInfo(parser.value(socket)).absoluteFilePath()
                                              : ConsoleProtocol::defaultSocketPath();
    return {path, std::chrono::seconds(seconds), parser.positionalArguments().join(QLatin1Char(' '))};
}

void printHelp()
{
    std::printf("Commands:\n%s\nNumbered commands for \"execute\", by number or name:\n%s",
                qPrintable(WzExternalApi::HELP()), qPrintable(CommandTable::help()));
}

/// Names are for people; what travels is the number.
QString withNumber(const QString& line)
{
    const QStringList parts = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const auto command = CommandTable::fromName(parts.value(1));
    if (parts.size() != 2 || parts.first() != QLatin1String("execute") || !command)
        return line;
    return QStringLiteral("execute %1").arg(numberOf(*command));
}

/// False when there is nobody to speak to any more.
bool runLine(ConsoleClient& client, const QString& line, int& exitCode)
{
    if (line == QLatin1String("help")) {
        printHelp();
        return true;
    }
    const ConsoleClient::Result result = client.run(withNumber(line));
    if (result != ConsoleClient::Result::Done)
        exitCode = 1;
    if (result == ConsoleClient::Result::Lost)
        std::fprintf(stderr, "%s: %s\n", kName, qPrintable(client.problem()));
    return result != ConsoleClient::Result::Lost;
}

int runInput(ConsoleClient& client)
{
    int exitCode = 0;
    std::string line;
    while (std::getline(std::cin, line)) {
        const QString command = QString::fromUtf8(line.data(), static_cast<int>(line.size())).trimmed();
        if (!command.isEmpty() && !runLine(client, command, exitCode))
            break;
    }
    return exitCode;
}

int runTerminal(ConsoleClient& client)
{
    const ConsoleEditor editor;
    int exitCode = 0;
    std::puts("\"help\" lists the commands, Ctrl-D ends.");
    while (const auto line = ConsoleEditor::readLine()) {
        if (*line == QLatin1String("quit"))
            break;
        if (!line->isEmpty() && !runLine(client, *line, exitCode))
            return exitCode;
    }
    return 0;
}

int run(const Options& options)
{
    if (options.line == QLatin1String("help")) {
        printHelp();
        return 0;
    }
    ConsoleClient client(options.socket, options.timeLimit);
    if (!client.connectToClient()) {
        std::fprintf(stderr, "%s: %s\n", kName, qPrintable(client.problem()));
        return 1;
    }
    int exitCode = 0;
    if (!options.line.isEmpty())
        runLine(client, options.line, exitCode);
    else
        exitCode = ::isatty(STDIN_FILENO) ? runTerminal(client) : runInput(client);
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine::keepStandardStreams();
    if (CommandLine::answersHelpOrVersion(argc, argv, kName, kUsage))
        return 0;
    // A display client that ends is told by its socket, not by the end of this program.
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    return run(readOptions());
}
