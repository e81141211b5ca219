#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "app/core/WzClientCoreApplicationBase.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"

#include <QCommandLineParser>

#include <csignal>
#include <limits>

namespace {

constexpr char kUsage[] =
    "Usage: wz_datacore COMMAND [options]\n"
    "Reads and writes the trees of a running instrument, shows its meters and events, and explains what it "
    "measures.\n"
    "Commands that speak to an instrument:\n"
    "  list [PREFIX]             the paths of its elements\n"
    "  tree [PATH]               its elements as a tree, with values, classes and states\n"
    "  get PATH                  the items of an element, one a line\n"
    "  set PATH VALUE...         writes an element and waits until the instrument has taken it\n"
    "  watch PATH...             the values of elements, and a line for each change\n"
    "  wait PATH                 waits until an element has a value\n"
    "  export FILE               writes all settings into a file\n"
    "  import FILE               writes the settings of a file into the instrument\n"
    "  meters                    the audio meters, live\n"
    "  events                    the events kept by the instrument, and a line for each from then on\n"
    "Commands that need none:\n"
    "  decode-vpid WORD          explains a payload identifier, eight hexadecimal digits\n"
    "  decode-channel-status HEX explains an AES3 channel status block, 48 hexadecimal digits\n"
    "  list-standards            the video standards that can be recognised\n"
    "Options:\n"
    "  --json                    JSON: one document; watch, meters and events: one object a line\n"
    "  --host ADDRESS            the instrument's IPv4 address (127.0.0.1)\n"
    "  --timeout SECONDS         fails when nothing comes for so long (10; meters: 0, which is for ever);\n"
    "                            events: ends without any for so long (0), and fails only\n"
    "                            without a connection\n"
    "  --count N                 watch, meters, events: ends after N changes, readings or events\n"
    "  --generator               list-standards: those that can be generated\n"
    "  --help                    this text\n"
    "  --version                 the version\n"
    "Values that begin with a dash stand behind \"--\". Exit code: 0 done, 1 failed, 2 wrong usage.\n";

/// Options that only some commands take.
enum Option : unsigned { kHost = 1, kTimeout = 2, kCount = 4, kGenerator = 8 };

constexpr struct {
    Option option;
    const char* name;
    bool hasValue;
} kOptions[] = {
    {kHost, "host", true},
    {kTimeout, "timeout", true},
    {kCount, "count", true},
    {kGenerator, "generator", false},
};
constexpr char kJson[] = "json";

struct Command {
    const char* name;
    int fewest; ///< arguments
    int most;
    unsigned options;
    int (*run)(const ToolContext&);
};

constexpr int kAny = std::numeric_limits<int>::max();
constexpr unsigned kServer = kHost | kTimeout;
constexpr Command kCommands[] = {
    {"list", 0, 1, kServer, &ToolCommands::list},
    {"tree", 0, 1, kServer, &ToolCommands::tree},
    {"get", 1, 1, kServer, &ToolCommands::get},
    {"set", 2, kAny, kServer, &ToolCommands::set},
    {"watch", 1, kAny, kServer | kCount, &ToolCommands::watch},
    {"wait", 1, 1, kServer, &ToolCommands::wait},
    {"export", 1, 1, kServer, &ToolCommands::exportSettings},
    {"import", 1, 1, kServer, &ToolCommands::importSettings},
    {"meters", 0, 0, kServer | kCount, &ToolCommands::meters},
    {"events", 0, 0, kServer | kCount, &ToolCommands::events},
    {"decode-vpid", 1, 1, 0, &ToolCommands::decodeVpid},
    {"decode-channel-status", 1, 1, 0, &ToolCommands::decodeChannelStatus},
    {"list-standards", 0, 0, kGenerator, &ToolCommands::listStandards},
};

[[noreturn]] void failUsage(const QString& problem)
{
    CommandLine::failUsage(ToolContext::kProgramName, problem);
}

int readNumber(const QCommandLineParser& parser, const char* option)
{
    const QString text = parser.value(QLatin1String(option));
    bool ok = false;
    const int number = text.toInt(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<int>::max() / 1000)
        failUsage(QStringLiteral("'%1' is no number for --%2").arg(text, QLatin1String(option)));
    return number;
}

QHostAddress readHost(const QString& text)
{
    // Requests for raw data, and the clients' identities, have room for IPv4 addresses only.
    const QHostAddress host(text);
    bool isIPv4 = false;
    host.toIPv4Address(&isIPv4);
    if (!isIPv4)
        failUsage(QStringLiteral("'%1' is no IPv4 address").arg(text));
    return host;
}

const Command& findCommand(const QString& name)
{
    for (const Command& command : kCommands) {
        if (name == QLatin1String(command.name))
            return command;
    }
    failUsage(QStringLiteral("there is no command '%1'").arg(name));
}

void checkUse(const Command& command, const QStringList& arguments, const QCommandLineParser& parser)
{
    const QString name = QString::fromLatin1(command.name);
    for (const auto& option : kOptions) {
        if ((command.options & option.option) == 0 && parser.isSet(QLatin1String(option.name)))
            failUsage(QStringLiteral("'%1' takes no --%2").arg(name, QLatin1String(option.name)));
    }
    if (arguments.size() < command.fewest)
        failUsage(QStringLiteral("'%1' needs more arguments").arg(name));
    if (arguments.size() > command.most)
        failUsage(QStringLiteral("unexpected argument '%1'").arg(arguments.at(command.most)));
}

int runCommandLine(WzClientCoreApplicationBase& application)
{
    QCommandLineParser parser;
    parser.addOption(QCommandLineOption(QLatin1String(kJson)));
    for (const auto& option : kOptions) {
        const QString value = option.hasValue ? QStringLiteral("VALUE") : QString();
        parser.addOption(QCommandLineOption(QLatin1String(option.name), QString(), value));
    }
    if (!parser.parse(QCoreApplication::arguments()))
        failUsage(parser.errorText());
    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        failUsage(QStringLiteral("no command given"));
    const Command& command = findCommand(arguments.takeFirst());
    checkUse(command, arguments, parser);

    ToolContext context(application);
    context.arguments = arguments;
    context.json = parser.isSet(QLatin1String(kJson));
    context.generator = parser.isSet(QLatin1String("generator"));
    if (parser.isSet(QLatin1String("count")))
        context.count = readNumber(parser, "count");
    if (parser.isSet(QLatin1String("timeout")))
        context.timeout = std::chrono::seconds(readNumber(parser, "timeout"));
    if (parser.isSet(QLatin1String("host")))
        context.host = readHost(parser.value(QLatin1String("host")));
    return command.run(context);
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine::keepStandardStreams();
    if (CommandLine::answersHelpOrVersion(argc, argv, ToolContext::kProgramName, kUsage))
        return 0;
    CrashHandler::setup(nullptr);
    // Standard output is for results, so the log goes to the system's only.
    Velmora::setLogIdentity(ToolContext::kProgramName);
    Velmora::initLogging(false, "");
    // A reader of the results that has gone is found out by the failing write.
    std::signal(SIGPIPE, SIG_IGN);

    WzClientCoreApplicationBase application(argc, argv, WzClientNetworkManager::RawData::DoNotListen);
    TerminationSignals::quitApplication();
    const int exitCode = runCommandLine(application);
    Velmora::ceaseLogging();
    return exitCode;
}
