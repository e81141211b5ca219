#pragma once

#include "server/sources/Signal.h"

namespace Velmora::Media {

/// Opens a media file through FFmpeg: a Server::MediaOpener. Pictures and sound each read the file by
/// themselves, so that neither has to keep what the other does not want yet.
std::optional<Server::MediaFile>
openMediaFile(const QString& path, const std::shared_ptr<Server::PlaybackControl>& control, QString& error);

} // namespace Velmora::Media
