#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/core/GeneratorStandardNode.h"
#include "server/core/Instrument.h"
#include "server/core/MediaModule.h"
#include "server/sources/AudioSourceCatalogue.h"
#include "server/sources/PatternCatalogue.h"
#include "types/sdi/SupportedVideoStandards.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHostAddress>

#include <cstdio>
#include <cstdlib>

using namespace Velmora::Server;
using Velmora::Sdi::StandardFromPayloadIdentifier;

namespace {

constexpr char kUsage[] =
    "Usage: wz_instrument [options]\n"
    "The software instrument: makes signals, measures them and serves the results on port 29440.\n"
    "  --listen ADDRESS  the address to listen on (127.0.0.1)\n"
    "  --source NAME     the signal to measure: a sound (levels) or a test pattern\n"
    "  --list-sources    the names and what they are\n"
    "  --standard NAME   the video standard of test patterns, by its name or the first word of its\n"
    "                    payload identifier as \"wz_datacore list-standards\" prints them\n"
    "  --input FILE      plays and measures a media file\n"
    "  --loop            plays it again and again\n"
    "  --seed N          begins the random parts of signals and faults at another place (1)\n"
    "  --faults PLAN     misbehaves on purpose, for tests of clients:\n"
    "                    drop=SHARE,delay=MS,split=BYTES,corrupt=SHARE,disconnect=PACKETS\n"
    "  --help            this text\n"
    "  --version         the version\n";

struct Options {
    QHostAddress address{QHostAddress::LocalHost};
    SignalChoice signal;
    unsigned seed = 1;
    FaultPlan faults;
    bool listSources = false;
};

/// The catalogue is built for this alone: nothing else here needs all standards. A word that several of them
/// begin with means the one with the fewest links.
std::optional<StandardFromPayloadIdentifier> findStandard(const QString& name)
{
    const Velmora::Sdi::SupportedVideoStandards supported;
    const StandardFromPayloadIdentifier* found = nullptr;
    for (const auto* const standard : supported.getSupportedAnalyserStandards()) {
        const auto value = VideoStandardValue::of(*standard);
        const QString word = VideoStandardValue::Identifier::toText(value.identifiers.front().word);
        const bool isNamed = word == name.toUpper() || standard->getStandardAsShortText() == name;
        const bool isSmaller = !found || value.identifiers.size() < found->getPayloadIdentifiers().size();
        if (isNamed && isSmaller && GeneratorStandardNode::formatOf(value))
            found = standard;
    }
    return found ? std::optional(*found) : std::nullopt;
}

/// @p name is a source, or a pattern that goes with the default sound.
bool chooseSource(SignalChoice& choice, const QString& name)
{
    const bool isPattern = PatternCatalogue::make(name.toStdString()) != nullptr;
    (isPattern ? choice.pattern : choice.source) = name;
    return isPattern || SignalInput::sourceNames().contains(name);
}

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
    const auto standard = option("standard", value);
    const auto input = option("input", value);
    const auto loop = option("loop");

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
    const auto failUsage = [](const char* text, const QString& argument) {
        CommandLine::failUsage("wz_instrument", QString::fromLatin1(text).arg(argument));
    };
    if (parser.isSet(source) && !chooseSource(options.signal, parser.value(source)))
        failUsage("there is no source '%1' (see --list-sources)", parser.value(source));
    if (parser.isSet(standard)) {
        options.signal.standard = findStandard(parser.value(standard));
        if (!options.signal.standard)
            failUsage("there is no video standard '%1' to generate (see \"wz_datacore list-standards\")",
                      parser.value(standard));
    }
    if (parser.isSet(input)) {
        if (parser.isSet(source))
            CommandLine::failUsage("wz_instrument",
                                   QStringLiteral("--source and --input do not go together"));
        options.signal.source = QString::fromLatin1(SignalInput::kFileSource);
        options.signal.mediaFile = QFileInfo(parser.value(input)).absoluteFilePath();
    }
    options.signal.loop = parser.isSet(loop);
    options.signal.openMedia = MediaModule::open;
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
    const auto print = [](const char* name, const char* description) {
        std::printf("%-16s %s\n", name, description);
    };
    std::printf("Sounds, to the pattern that is set:\n");
    for (const auto& entry : AudioSourceCatalogue::entries())
        print(entry.name, entry.description);
    std::printf("Test patterns:\n");
    for (const auto& entry : PatternCatalogue::entries())
        print(entry.name, entry.description);
    std::printf("Others:\n");
    print(SignalInput::kLipSyncSource, "white flash of one frame and a click every second");
    print(SignalInput::kFileSource, "the media file that is set (see --input)");
    print(SignalInput::kNoSignalSource, "no picture and no sound");
}

int serve(const Options& options)
{
    Instrument instrument(options.signal, options.faults, options.seed);
    if (!options.signal.mediaFile.isEmpty() && !instrument.input().mediaError().isEmpty()) {
        std::fprintf(stderr, "wz_instrument: cannot play '%s': %s\n", qPrintable(options.signal.mediaFile),
                     qPrintable(instrument.input().mediaError()));
        return 1;
    }
    const QString place =
        QStringLiteral("%1:%2").arg(options.address.toString()).arg(NetworkConnection::kServerTcpPort);
    QString error;
    if (!instrument.listen(options.address, error)) {
        std::fprintf(stderr, "wz_instrument: cannot listen on %s: %s\n", qPrintable(place),
                     qPrintable(error));
        return 1;
    }
    Velmora::log()->info("wz_instrument {} listening on {}, {}", WZ_VERSION, place,
                         instrument.input().description());
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
