#include "media/MediaPlayer.h"

#include <QtGlobal>

/// What the program that loads this module calls: MediaModule in the server's folder.
extern "C" Q_DECL_EXPORT void
wzOpenMediaFile(const QString& path, const std::shared_ptr<Velmora::Server::PlaybackControl>& control,
                std::optional<Velmora::Server::MediaFile>& file, QString& error)
{
    file = Velmora::Media::openMediaFile(path, control, error);
}
