#include "server/sources/patterns/FrameCounterStrip.h"

#include "server/sources/VideoFormats.h"

namespace Velmora::Server {

void FrameCounterStrip::paint(PictureCanvas& canvas, std::uint32_t number)
{
    for (int field = 0; field < kFields; ++field)
        paintField(canvas, field, number);
}

void FrameCounterStrip::advance(PictureCanvas& canvas, std::uint32_t number)
{
    for (int field = 0; field < kFields; ++field) {
        if (isLit(field, number) != isLit(field, number - 1))
            paintField(canvas, field, number);
    }
}

std::optional<std::uint32_t> FrameCounterStrip::read(const VideoFrame& frame)
{
    const VideoPlane& plane = frame.planes[0];
    const int middle = 1 << (VideoFormats::bitsOf(frame.format.depth) - 1);
    const auto isWhite = [&](int field) {
        const PictureArea area = fieldOf(plane.width, plane.height, field);
        return plane.line((area.y0 + area.y1) / 2)[(area.x0 + area.x1) / 2] > middle;
    };
    if (!isWhite(0) || !isWhite(kFields - 1))
        return std::nullopt;
    std::uint32_t number = 0;
    for (int bit = 0; bit < kBits; ++bit)
        number = number << 1 | (isWhite(bit + 1) ? 1U : 0U);
    return number;
}

PictureArea FrameCounterStrip::fieldOf(int width, int height, int field)
{
    return {width * field / kFields, height * 15 / 16, width * (field + 1) / kFields, height};
}

bool FrameCounterStrip::isLit(int field, std::uint32_t number)
{
    const bool isEnd = field == 0 || field == kFields - 1;
    return isEnd || ((number >> (kBits - field)) & 1U) != 0;
}

void FrameCounterStrip::paintField(PictureCanvas& canvas, int field, std::uint32_t number)
{
    canvas.fill(fieldOf(canvas.width(), canvas.height(), field),
                canvas.codes().grey(isLit(field, number) ? 1.0 : 0.0));
}

} // namespace Velmora::Server
