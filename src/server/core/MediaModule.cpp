#include "server/core/MediaModule.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

namespace Velmora::Server::MediaModule {

namespace {

using Open = void (*)(const QString&, const std::shared_ptr<PlaybackControl>&, std::optional<MediaFile>&,
                      QString&);

/// Beside the program, as in a build, or where it is installed.
QString findModule()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + QStringLiteral("/wz_media.so");
    return QFileInfo::exists(beside) ? beside : folder + QStringLiteral("/../lib/wz/wz_media.so");
}

} // namespace

std::optional<MediaFile> open(const QString& path, const std::shared_ptr<PlaybackControl>& control,
                              QString& error)
{
    // Never unloaded: sources that it has made may live as long as the program.
    static QLibrary library(findModule());
    static const auto openFile = reinterpret_cast<Open>(library.resolve("wzOpenMediaFile"));
    std::optional<MediaFile> file;
    if (openFile)
        openFile(path, control, file, error);
    else
        error = QStringLiteral("the module for media files is missing (%1)").arg(library.errorString());
    return file;
}

} // namespace Velmora::Server::MediaModule
