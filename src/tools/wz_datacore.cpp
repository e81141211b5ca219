#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "app/core/WzClientCoreApplicationBase.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"
#include "tools/MetersCommand.h"

#include <QCommandLineParser>

#include <csignal>
#include <limits>

namespace {

constexpr char kName[] = "wz_datacore";
constexpr char kUsage[] = "Usage: wz_datacore COMMAND [options]\n"
                          "Shows what a running instrument publishes.\n"
                          "  meters             the audio meters, live\n"
                          "Options:\n"
                          "  --host ADDRESS     the instrument's IPv4 address (127.0.0.1)\n"
                          "  --json             one line of JSON for each reading\n"
                          "  --count N          ends after N readings\n"
                          "  --timeout SECONDS  fails when nothing comes for so long (0: waits for ever)\n"
                          "  --help             this text\n"
                          "  --version          the version\n"
                          "Exit code: 0 done, 1 failed, 2 wrong usage.\n";

/// Timers count milliseconds in an int.
constexpr int kLongestTimeoutSeconds = std::numeric_limits<int>::max() / 1000;

int readNumber(const QCommandLineParser& parser, const QCommandLineOption& option,
               int largest = std::numeric_limits<int>::max())
{
    if (!parser.isSet(option))
        return 0;
    bool ok = false;
    const int number = parser.value(option).toInt(&ok);
    if (!ok || number < 0 || number > largest) {
        CommandLine::failUsage(
            kName,
            QStringLiteral("'%1' is no number for --%2").arg(parser.value(option), option.names().first()));
    }
    return number;
}

MetersCommand::Options readOptions(const QStringList& arguments)
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

    const QStringList commands = parser.positionalArguments();
    if (commands.isEmpty())
        CommandLine::failUsage(kName, QStringLiteral("no command given"));
    if (commands.first() != QLatin1String("meters"))
        CommandLine::failUsage(kName, QStringLiteral("there is no command '%1'").arg(commands.first()));
    if (commands.size() > 1)
        CommandLine::failUsage(kName, QStringLiteral("unexpected argument '%1'").arg(commands.at(1)));

    MetersCommand::Options options;
    options.json = parser.isSet(json);
    options.count = readNumber(parser, count);
    options.timeoutSeconds = readNumber(parser, timeout, kLongestTimeoutSeconds);
    if (parser.isSet(host))
        options.host.setAddress(parser.value(host));
    // Where to send the meters has room for an IPv4 address only.
    bool isIPv4 = false;
    options.host.toIPv4Address(&isIPv4);
    if (!isIPv4)
        CommandLine::failUsage(kName, QStringLiteral("'%1' is no IPv4 address").arg(parser.value(host)));
    return options;
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
    TerminationSignals::quitApplication();
    MetersCommand meters(application.getNetworkManager(), readOptions(QCoreApplication::arguments()));
    const int exitCode = meters.start() ? QCoreApplication::exec() : 1;
    Velmora::ceaseLogging();
    return exitCode;
}
