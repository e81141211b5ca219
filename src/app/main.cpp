#include "app/StartupTrace.h"
#include "app/WzDisplayClientApplication.h"
#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"

#include <cstdio>
#include <string_view>

namespace {

constexpr char kUsage[] =
    "Usage: wz_displayclient [-Dkey=value ...]\n"
    "Shows the measurements of the instrument on this machine.\n"
    "  -Dserver=ADDRESS    another instrument\n"
    "  -Dwindowed=true     a window instead of the whole screen\n"
    "  -Dscale=N           draws N times as large, for displays with small pixels; at least 1\n"
    "  -DpresetFile=FILE   where layouts and settings are kept\n"
    "  -Dconsole=PATH      the socket for wz_console\n"
    "  -Dtrace=startup     prints when each step of the start was reached\n"
    "  --help              this text\n"
    "  --version           the version\n";

/// The value of -Dkey=value, before there is an application that knows its arguments.
std::string_view argument(int argc, char** argv, std::string_view key)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view text(argv[i]);
        if (text.substr(0, 2) == "-D" && text.substr(2, key.size()) == key
            && text.substr(2 + key.size(), 1) == "=")
            return text.substr(3 + key.size());
    }
    return {};
}

/// Sizes and fonts are in design pixels, which Qt scales as a whole. It wants to know before it starts.
void setScale(int argc, char** argv)
{
    const std::string_view scale = argument(argc, argv, "scale");
    const QByteArray factor(scale.data(), static_cast<int>(scale.size()));
    // Painters of this version of Qt do not draw smaller: they would draw at full size into a smaller window.
    if (factor.toDouble() >= 1.0)
        qputenv("QT_SCALE_FACTOR", factor);
    else if (!scale.empty())
        std::fprintf(stderr, "wz_displayclient: -Dscale=%s is not drawn: it has to be 1 or more\n",
                     factor.constData());
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void loadFrontPanelKeyMap()
{
    // Only the platform of the instrument's own panel has such a function.
    using LoadKeymap = void (*)(const QString&);
    if (const auto load = reinterpret_cast<LoadKeymap>(QGuiApplication::platformFunction("EglFSLoadKeymap")))
        load(QStringLiteral(":/front_panel.qmap"));
}

int run(int argc, char** argv)
{
    setScale(argc, argv);
    QApplication::setStyle(new WzDisplayCustomStyle);
    WzDisplayClientApplication application(argc, argv);
    StartupTrace::step("application built");
    TerminationSignals::quitApplication();
    loadFrontPanelKeyMap();
    QMetaObject::invokeMethod(
        &application, [&application] { application.initialise(true); }, Qt::QueuedConnection);
    const int exitCode = QApplication::exec();
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
    if (argument(argc, argv, "trace") == "startup")
        StartupTrace::enable();
    StartupTrace::step("main");
    CrashHandler::setup(nullptr);
    if (CoreDumpControl::isCoreDumpFeatureFlagEnabled())
        CoreDumpControl::enableCoreDumps();
    Velmora::initLogging(true, "/home/transfer/log/");
    return run(argc, argv);
}
