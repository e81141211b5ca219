#pragma once

#include "server/sources/PictureCanvas.h"

namespace Velmora::Server {

/// Places of a layout that is given for 1920 x 1080, in a picture of another size: the nearest pixel.
class ScaledEdges {
public:
    explicit ScaledEdges(const PictureCanvas& canvas)
        : m_width(canvas.width())
        , m_height(canvas.height())
    {
    }

    int x(int at1920) const { return (at1920 * m_width + 960) / 1920; }
    int y(int at1080) const { return (at1080 * m_height + 540) / 1080; }

private:
    int m_width;
    int m_height;
};

} // namespace Velmora::Server
