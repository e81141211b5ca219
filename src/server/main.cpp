#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/InstrumentOptions.h"
#include "server/core/Instrument.h"
#include "server/core/MonitorModule.h"
#include "server/sources/AudioSourceCatalogue.h"
#include "server/sources/PatternCatalogue.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace Velmora::Server;

namespace {

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

int serve(const InstrumentOptions& options)
{
    Instrument instrument(options.signal, options.faults, options.seed);
    instrument.audioMonitor().setOpener(MonitorModule::open);
    if (!options.channelNames.isEmpty())
        instrument.audioContent().readNames(options.channelNames);
    if (!options.signal.mediaFile.isEmpty() && !instrument.input().mediaError().isEmpty()) {
        std::fprintf(stderr, "wz_instrument: cannot play '%s': %s\n", qPrintable(options.signal.mediaFile),
                     qPrintable(instrument.input().mediaError()));
        return 1;
    }
    instrument.keepSettings(options.stateFolder + QLatin1String("/settings.json"));
    instrument.keepPresets(options.stateFolder + QLatin1String("/presets"));
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
    if (CommandLine::answersHelpOrVersion(argc, argv, "wz_instrument", InstrumentOptions::usage()))
        return 0;
    CrashHandler::setup(nullptr);
    if (CoreDumpControl::isCoreDumpFeatureFlagEnabled())
        CoreDumpControl::enableCoreDumps();
    const QCoreApplication application(argc, argv);
    const auto options = InstrumentOptions::read(QCoreApplication::arguments());
    if (options.listSources) {
        listSources();
        return 0;
    }
    if (!options.render.measurement.isEmpty())
        return render(options.render, options.signal, options.seed);
    Velmora::setLogIdentity("wz_instrument");
    Velmora::initLogging(true, "");
    TerminationSignals::quitApplication();
    const int exitCode = serve(options);
    Velmora::ceaseLogging();
    return exitCode;
}
