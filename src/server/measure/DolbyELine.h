#pragma once

#include "server/sources/VideoFrame.h"

#include <cstdint>
#include <optional>

namespace Velmora::Server {

/// Where Dolby E frames stand against the pictures, in lines of the raster, which count from 1.
namespace DolbyELine {

/// The line that is sent when the sound at @p position is, both counted from the same start; nothing for
/// pictures without a raster.
std::optional<int> lineAt(std::uint64_t position, const VideoFormat& format);

/// Where a frame should begin: as delivery handbooks have it for interlaced pictures, and after the same time
/// for others.
std::optional<int> idealLine(const VideoFormat& format);

} // namespace DolbyELine

} // namespace Velmora::Server
