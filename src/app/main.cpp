#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "app/core/WzClientCoreApplicationBase.h"
#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"

namespace {

constexpr char kUsage[] = "Usage: wz_displayclient [-Dkey=value ...]\n"
                          "Connects to the instrument on this machine and logs the state of the connection.\n"
                          "  --help     this text\n"
                          "  --version  the version\n";

int run(int argc, char** argv)
{
    WzClientCoreApplicationBase application(argc, argv);
    TerminationSignals::quitApplication();
    QMetaObject::invokeMethod(&application, &WzClientCoreApplicationBase::initialise, Qt::QueuedConnection);
    const int exitCode = QCoreApplication::exec();
    // Before the objects go: what they would still say while being taken apart is of no use to anybody.
    Velmora::ceaseLogging();
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    CommandLine::keepStandardStreams();
    if (CommandLine::answersHelpOrVersion(argc, argv, "wz_displayclient", kUsage))
        return 0;
    CrashHandler::setup(nullptr);
    if (CoreDumpControl::isCoreDumpFeatureFlagEnabled())
        CoreDumpControl::enableCoreDumps();
    Velmora::initLogging(true, "/home/transfer/log/");
    return run(argc, argv);
}
