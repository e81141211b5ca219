#pragma once

#include "server/sources/AudioSource.h"
#include "server/sources/PlaybackControl.h"
#include "server/sources/VideoSource.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace Velmora::Server {

/// What an input receives: pictures and the sound that began together with them.
struct Signal {
    std::unique_ptr<VideoSource> video; ///< null without pictures
    std::unique_ptr<AudioSource> audio; ///< null without sound
};

/// A media file that is open, as a signal.
struct MediaFile {
    Signal signal;
    std::chrono::nanoseconds duration{0}; ///< as far as known
};

/// Opens a media file, to be played as the control says. Nothing, and one line that says why, when there is
/// no such file or nothing in it can be decoded.
using MediaOpener = std::function<std::optional<MediaFile>(
    const QString& path, const std::shared_ptr<PlaybackControl>& control, QString& error)>;

} // namespace Velmora::Server
