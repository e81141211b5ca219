#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/core/Instrument.h"
#include "server/sources/AudioSourceCatalogue.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHostAddress>

#include <cstdio>
#include <cstdlib>

using namespace Velmora::Server;

namespace {

constexpr char kUsage[] =
    "Usage: wz_instrument [options]\n"
    "The software instrument: makes signals, measures them and serves the results on port 29440.\n"
    "  --listen ADDRESS  the address to listen on (127.0.0.1)\n"
    "  --source NAME     the signal to measure (levels)\n"
    "  --list-sources    the names and what they are\n"
    "  --seed N          begins the random parts of signals and faults at another place (1)\n"
    "  --faults PLAN     misbehaves on purpose, for tests of clients:\n"
    "                    drop=SHARE,delay=MS,split=BYTES,corrupt=SHARE,disconnect=PACKETS\n"
    "  --help            this text\n"
    "  --version         the version\n";

struct Options {
    QHostAddress address{QHostAddress::LocalHost};
    std::string source = AudioSourceCatalogue::entries().front().name;
    unsigned seed = 1;
    FaultPlan faults;
    bool listSources = false;
};

/// Reads the options, or ends the program with one line that says what is wrong.
Options readOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
    const auto option = [&](const char* name, const QString& valueName = {}) {
        const QCommandLineOption made(QString::fromLatin1(name), QString(), valueName);
        parser.addOption(made);
        return made;
    };
    const auto value = QStringLiteral("VALUE");
    const auto listen = option("listen", value);
    const auto source = option("source", value);
    const auto seed = option("seed", value);
    const auto faults = option("faults", value);
    const auto listSources = option("list-sources");

    if (!parser.parse(arguments))
        CommandLine::failUsage("wz_instrument", parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        CommandLine::failUsage(
            "wz_instrument",
            QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first()));

    Options options;
    options.listSources = parser.isSet(listSources);
    if (parser.isSet(listen) && !options.address.setAddress(parser.value(listen)))
        CommandLine::failUsage("wz_instrument",
                               QStringLiteral("'%1' is no address").arg(parser.value(listen)));
    if (parser.isSet(source))
        options.source = parser.value(source).toStdString();
    if (!AudioSourceCatalogue::make(options.source, options.seed)) {
        CommandLine::failUsage("wz_instrument",
                               QStringLiteral("there is no source '%1' (see --list-sources)")
                                   .arg(QString::fromStdString(options.source)));
    }
    if (parser.isSet(seed)) {
        bool ok = false;
        options.seed = parser.value(seed).toUInt(&ok);
        if (!ok)
            CommandLine::failUsage("wz_instrument",
                                   QStringLiteral("'%1' is no seed").arg(parser.value(seed)));
    }
    if (parser.isSet(faults)) {
        QString error;
        const auto plan = FaultPlan::parse(parser.value(faults), error);
        if (!plan)
            CommandLine::failUsage("wz_instrument", error);
        options.faults = *plan;
    }
    return options;
}

void listSources()
{
    for (const auto& entry : AudioSourceCatalogue::entries())
        std::printf("%-16s %s\n", entry.name, entry.description);
}

int serve(const Options& options)
{
    Instrument instrument(QString::fromStdString(options.source), options.faults, options.seed);
    const QString place =
        QStringLiteral("%1:%2").arg(options.address.toString()).arg(NetworkConnection::kServerTcpPort);
    if (!instrument.server().listen(options.address)) {
        std::fprintf(stderr, "wz_instrument: cannot listen on %s: %s\n", qPrintable(place),
                     qPrintable(instrument.server().errorString()));
        return 1;
    }
    Velmora::log()->info("wz_instrument {} listening on {}, source {}", WZ_VERSION, place, options.source);
    const int exitCode = QCoreApplication::exec();
    Velmora::log()->info("wz_instrument ends");
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine::keepStandardStreams();
    if (CommandLine::answersHelpOrVersion(argc, argv, "wz_instrument", kUsage))
        return 0;
    CrashHandler::setup(nullptr);
    if (CoreDumpControl::isCoreDumpFeatureFlagEnabled())
        CoreDumpControl::enableCoreDumps();
    const QCoreApplication application(argc, argv);
    const Options options = readOptions(QCoreApplication::arguments());
    if (options.listSources) {
        listSources();
        return 0;
    }
    Velmora::setLogIdentity("wz_instrument");
    Velmora::initLogging(true, "");
    TerminationSignals::quitApplication();
    const int exitCode = serve(options);
    Velmora::ceaseLogging();
    return exitCode;
}
