#include "media/MediaPlayer.h"

#include "media/MediaAudioSource.h"
#include "media/MediaVideoSource.h"

namespace Velmora::Media {

using Kind = MediaReader::Kind;

std::optional<Server::MediaFile>
openMediaFile(const QString& path, const std::shared_ptr<Server::PlaybackControl>& control, QString& error)
{
    auto pictures = MediaReader::open(path, Kind::Video, error);
    if (!pictures)
        return std::nullopt;
    Server::MediaFile file;
    file.duration = pictures->duration();
    const bool hasPictures = pictures->streamCount() > 0;
    const auto timing =
        std::make_shared<MediaTiming>(hasPictures ? pictures->endOf(0) : std::chrono::nanoseconds(0));
    if (hasPictures)
        file.signal.video = MediaVideoSource::make(std::move(pictures), control, timing);
    if (auto sound = MediaReader::open(path, Kind::Audio, error); sound && sound->streamCount() > 0)
        file.signal.audio = std::make_unique<MediaAudioSource>(std::move(sound), control, timing);
    if (file.signal.video || file.signal.audio)
        return file;
    error = QStringLiteral("it has neither pictures nor sound that can be decoded");
    return std::nullopt;
}

} // namespace Velmora::Media
