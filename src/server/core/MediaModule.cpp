#include "server/core/MediaModule.h"

#include "server/core/ModuleFile.h"

#include <QLibrary>

namespace Velmora::Server::MediaModule {

namespace {

using Open = void (*)(const QString&, const std::shared_ptr<PlaybackControl>&, std::optional<MediaFile>&,
                      QString&);

} // namespace

std::optional<MediaFile> open(const QString& path, const std::shared_ptr<PlaybackControl>& control,
                              QString& error)
{
    // Never unloaded: sources that it has made may live as long as the program.
    static QLibrary library(moduleFile(QStringLiteral("wz_media")));
    static const auto openFile = reinterpret_cast<Open>(library.resolve("wzOpenMediaFile"));
    std::optional<MediaFile> file;
    if (openFile)
        openFile(path, control, file, error);
    else
        error = QStringLiteral("the module for media files is missing (%1)").arg(library.errorString());
    return file;
}

} // namespace Velmora::Server::MediaModule
