#pragma once

#include <string>
#include <string_view>

namespace Velmora::Feed::SegmentNames {

/// Letters, digits and '-', 1 to 32 of them: what an image may be called.
bool isImageName(std::string_view image);

/// The segment of an image of the instrument that listens on @p port: several may run on one host.
std::string nameOf(int port, std::string_view image);

/// Removes the segments of this user's writers that ended without doing so. The number of them.
int removeAbandoned();

} // namespace Velmora::Feed::SegmentNames
