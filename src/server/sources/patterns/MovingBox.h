#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// A white box that crosses a black picture from left to right in about four seconds, with the frame's number
/// in digits and as a FrameCounterStrip. In interlaced pictures the box has a place of its own in each field.
class MovingBox : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
    void advance(PictureCanvas& canvas, std::uint64_t number) const override;
};

} // namespace Velmora::Server
