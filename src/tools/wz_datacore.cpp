#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "app/core/WzClientCoreApplicationBase.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"
#include "tools/DatacoreCommands.h"
#include "tools/EventsCommand.h"
#include "tools/MetersCommand.h"

#include <QCommandLineParser>
#include <QTimer>

#include <csignal>
#include <limits>
#include <optional>

namespace {

constexpr char kName[] = "wz_datacore";
constexpr char kUsage[] =
    "Usage: wz_datacore COMMAND [options]\n"
    "Reads and writes the trees of a running instrument, and shows its meters and events.\n"
    "  list [PREFIX]        the paths of its elements\n"
    "  get PATH             the items of an element, one a line\n"
    "  set PATH VALUE...    writes an element and waits until the instrument has taken it\n"
    "  watch PATH...        the values of elements, and a line for each change\n"
    "  wait PATH            waits until an element has a value\n"
    "  meters               the audio meters, live\n"
    "  events               the events kept by the instrument, and a line for each from then on\n"
    "Options:\n"
    "  --host ADDRESS       the instrument's IPv4 address (127.0.0.1)\n"
    "  --json               JSON, one line for each reading, change or event\n"
    "  --count N            ends after N readings, changes or events\n"
    "  --timeout SECONDS    fails when nothing comes for so long (10; meters: 0, which is for ever);\n"
    "                       events: ends without any for so long (0), and fails only without a connection\n"
    "  --help               this text\n"
    "  --version            the version\n"
    "Values that begin with a dash stand behind \"--\". Exit code: 0 done, 1 failed, 2 wrong usage.\n";

/// A command with the number of its arguments.
struct Command {
    const char* name;
    int fewest;
    int most;
};

constexpr int kAny = std::numeric_limits<int>::max();
constexpr Command kCommands[] = {
    {"list", 0, 1}, {"get", 1, 1},    {"set", 2, kAny}, {"watch", 1, kAny},
    {"wait", 1, 1}, {"meters", 0, 0}, {"events", 0, 0},
};

struct CommandLineRead {
    QString command;
    QStringList arguments;
    QHostAddress host{QHostAddress::LocalHost};
    bool json = false;
    int count = 0;
    std::optional<int> timeoutSeconds;
};

int readNumber(const QString& text, const char* option)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<int>::max() / 1000)
        CommandLine::failUsage(kName,
                               QStringLiteral("'%1' is no number for --%2").arg(text, QLatin1String(option)));
    return number;
}

void checkCommand(const CommandLineRead& read)
{
    for (const Command& command : kCommands) {
        if (read.command != QLatin1String(command.name))
            continue;
        if (read.arguments.size() < command.fewest)
            CommandLine::failUsage(kName, QStringLiteral("'%1' needs more arguments").arg(read.command));
        if (read.arguments.size() > command.most) {
            CommandLine::failUsage(
                kName, QStringLiteral("unexpected argument '%1'").arg(read.arguments.at(command.most)));
        }
        return;
    }
    CommandLine::failUsage(kName, QStringLiteral("there is no command '%1'").arg(read.command));
}

CommandLineRead readCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    const auto value = QStringLiteral("VALUE");
    const QCommandLineOption host(QStringLiteral("host"), QString(), value);
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption count(QStringLiteral("count"), QString(), value);
    const QCommandLineOption timeout(QStringLiteral("timeout"), QString(), value);
    parser.addOptions({host, json, count, timeout});
    if (!parser.parse(arguments))
        CommandLine::failUsage(kName, parser.errorText());
    if (parser.positionalArguments().isEmpty())
        CommandLine::failUsage(kName, QStringLiteral("no command given"));

    CommandLineRead read;
    read.arguments = parser.positionalArguments();
    read.command = read.arguments.takeFirst();
    read.json = parser.isSet(json);
    if (parser.isSet(count))
        read.count = readNumber(parser.value(count), "count");
    if (parser.isSet(timeout))
        read.timeoutSeconds = readNumber(parser.value(timeout), "timeout");
    if (parser.isSet(host))
        read.host.setAddress(parser.value(host));
    // Requests for raw data, and the clients' identities, have room for IPv4 addresses only.
    bool isIPv4 = false;
    read.host.toIPv4Address(&isIPv4);
    if (!isIPv4)
        CommandLine::failUsage(kName, QStringLiteral("'%1' is no IPv4 address").arg(parser.value(host)));
    checkCommand(read);
    return read;
}

int showMeters(WzClientCoreApplicationBase& application, const CommandLineRead& read)
{
    MetersCommand meters(application.getNetworkManager(),
                         {read.host, read.json, read.count, read.timeoutSeconds.value_or(0)});
    return meters.start() ? QCoreApplication::exec() : 1;
}

int showEvents(WzClientCoreApplicationBase& application, const CommandLineRead& read)
{
    EventsCommand events(application.getNetworkManager(), application.getLogPacketHandler(),
                         {read.host, read.json, read.count, read.timeoutSeconds.value_or(0)});
    events.start();
    return QCoreApplication::exec();
}

int runOnTrees(WzClientCoreApplicationBase& application, const CommandLineRead& read)
{
    DatacoreCommands::Options options;
    options.host = read.host;
    options.json = read.json;
    options.count = read.count;
    if (read.timeoutSeconds)
        options.timeout = std::chrono::seconds(*read.timeoutSeconds);
    DatacoreCommands commands(application.getNetworkManager(),
                              application.getDatacoreManager().getClientDatacoreRegistry(), options);
    if (read.command == QLatin1String("list"))
        return commands.list(read.arguments.value(0));
    if (read.command == QLatin1String("get"))
        return commands.get(read.arguments.first());
    if (read.command == QLatin1String("set"))
        return commands.set(read.arguments.first(), read.arguments.mid(1));
    if (read.command == QLatin1String("watch"))
        return commands.watch(read.arguments);
    return commands.wait(read.arguments.first());
}

int run(WzClientCoreApplicationBase& application, const CommandLineRead& read)
{
    if (read.command == QLatin1String("meters"))
        return showMeters(application, read);
    if (read.command == QLatin1String("events"))
        return showEvents(application, read);
    return runOnTrees(application, read);
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine::keepStandardStreams();
    if (CommandLine::answersHelpOrVersion(argc, argv, kName, kUsage))
        return 0;
    CrashHandler::setup(nullptr);
    // Standard output is for results, so the log goes to the system's only.
    Velmora::setLogIdentity(kName);
    Velmora::initLogging(false, "");
    // A reader of the results that has gone is found out by the failing write.
    std::signal(SIGPIPE, SIG_IGN);

    WzClientCoreApplicationBase application(argc, argv, WzClientNetworkManager::RawData::DoNotListen);
    const CommandLineRead read = readCommandLine(QCoreApplication::arguments());
    TerminationSignals::quitApplication();
    const int exitCode = run(application, read);
    Velmora::ceaseLogging();
    return exitCode;
}
