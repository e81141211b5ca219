#pragma once

#include "feed/PictureView.h"

#include <vector>

namespace Velmora::Feed {

/// Reduces a picture to at most @p width x @p height, each side for itself: every pixel becomes the mean of
/// the area that it stands for, so that nothing of a thin trace is lost. A side that is small enough already
/// stays. Sides below 1 count as 1. The pixels lie without gaps, @p picture is where they are.
std::vector<std::uint32_t> reduced(const PictureView& source, int width, int height, PictureView& picture);

} // namespace Velmora::Feed
