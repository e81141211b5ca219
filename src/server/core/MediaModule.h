#pragma once

#include "server/sources/Signal.h"

namespace Velmora::Server {

/// The part of the program that plays media files, loaded when the first one is opened: it needs so many
/// libraries that the start of those who play none would take several times as long.
namespace MediaModule {

/// A MediaOpener.
std::optional<MediaFile> open(const QString& path, const std::shared_ptr<PlaybackControl>& control,
                              QString& error);

} // namespace MediaModule

} // namespace Velmora::Server
