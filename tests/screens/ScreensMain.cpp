#include "app/WzDisplayClientApplication.h"
#include "gui/style/WzDisplayCustomStyle.h"
#include "logging/Logging.h"
#include "support/TestRunner.h"

#include <QTemporaryDir>

#include <array>

/// The main() of the display client, but for the event loop.
int main(int argc, char* argv[])
{
    const QTemporaryDir folder;
    // Nothing of the user's is read or written.
    qputenv("HOME", folder.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setStyle(new WzDisplayCustomStyle);
    QByteArray presetFile = "-DpresetFile=" + folder.filePath(QStringLiteral("state.json")).toLocal8Bit();
    QByteArray windowed("-Dwindowed=true");
    std::array<char*, 3> arguments{argv[0], presetFile.data(), windowed.data()};
    int count = static_cast<int>(arguments.size());
    WzDisplayClientApplication application(count, arguments.data());
    return TestRunner::run(argc, argv);
}
