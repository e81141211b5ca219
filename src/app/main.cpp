#include "app/StartupTrace.h"
#include "app/WzDisplayClientApplication.h"
#include "app/core/CommandLine.h"
#include "app/core/TerminationSignals.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "logging/CoreDumpControl.h"
#include "logging/CrashHandler.h"
#include "logging/Logging.h"

#include <QScreen>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

constexpr char kUsage[] = "Usage: wz_displayclient [-Dkey=value ...]\n"
                          "Shows the measurements of the instrument on this machine.\n"
                          "  -Dserver=ADDRESS    another instrument\n"
                          "  -Dwindowed=true     a window instead of the whole screen\n"
                          "  -Dscale=N           draws N times as large: 0.5 gives a window of 960 x 540\n"
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

/// What scales the design size to fit the screen, with room for the frame of a window and a desktop's panels.
QByteArray scaleThatFits(int argc, char** argv)
{
    constexpr double kRoom = 0.95;
    const QGuiApplication application(argc, argv);
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const double scale = kRoom
        * std::min(screen.width() / double(WzDisplayClientGuiManager::kDesignSize.width()),
                   screen.height() / double(WzDisplayClientGuiManager::kDesignSize.height()));
    // A width of 16 and a height of 9 pixels, or a multiple, so that no pixel of the design is lost in
    // rounding.
    const double steps = WzDisplayClientGuiManager::kDesignSize.width() / 16.0;
    return QByteArray::number(std::floor(std::min(scale, 1.0) * steps) / steps, 'g', 17);
}

/// Sizes and fonts are in design pixels, which Qt scales as a whole. It wants to know before it starts.
void setScale(int argc, char** argv)
{
    const std::string_view scale = argument(argc, argv, "scale");
    if (!scale.empty())
        qputenv("QT_SCALE_FACTOR", QByteArray(scale.data(), static_cast<int>(scale.size())));
    else if (argument(argc, argv, "windowed") == "true")
        qputenv("QT_SCALE_FACTOR", scaleThatFits(argc, argv));
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
