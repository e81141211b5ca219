#pragma once

#include "server/sources/PictureCanvas.h"

#include <cstdint>
#include <optional>

namespace Velmora::Server {

/// A frame's number as a row of black and white fields along the lower edge of the picture, for machines to
/// read back, also from a picture of another size: how old is a picture that somebody shows?
///
/// The strip has kBits fields, the highest bit at the left, between a white field at each end.
class FrameCounterStrip {
public:
    static constexpr int kBits = 32;
    static constexpr int kFields = kBits + 2;

    /// Paints the whole strip.
    static void paint(PictureCanvas& canvas, std::uint32_t number);
    /// Paints the fields in which the strip of the number before differs.
    static void advance(PictureCanvas& canvas, std::uint32_t number);

    /// The number in a picture's first component, Y or R; nothing where there is no strip.
    static std::optional<std::uint32_t> read(const VideoFrame& frame);

private:
    static PictureArea fieldOf(int width, int height, int field);
    static bool isLit(int field, std::uint32_t number);
    static void paintField(PictureCanvas& canvas, int field, std::uint32_t number);
};

} // namespace Velmora::Server
