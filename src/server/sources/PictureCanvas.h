#pragma once

#include "server/sources/CodeValues.h"
#include "server/sources/VideoBuffer.h"

#include <span>

namespace Velmora::Server {

/// Columns x0 to x1 - 1 of lines y0 to y1 - 1.
struct PictureArea {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;
};

/// A part of a line: from where the last one ends to @c end.
struct Column {
    int end;
    Colour colour;
};

/// Paints test pictures into a buffer, without blending or filtering: every sample has exactly the code of
/// what was painted there. A halved colour difference has the value of the even pixel (co-sited, BT.709).
class PictureCanvas {
public:
    explicit PictureCanvas(VideoBuffer& buffer);

    int width() const { return m_buffer.format().width; }
    int height() const { return m_buffer.format().height; }
    const VideoFormat& format() const { return m_buffer.format(); }
    const CodeValues& codes() const { return m_codes; }

    /// @p lineStep 2 paints every other line of the area, from its first.
    void fill(const PictureArea& area, const Colour& colour, int lineStep = 1);
    void fill(const Colour& colour) { fill({0, 0, width(), height()}, colour); }
    /// Lines y0 to y1 - 1 all alike.
    void fillColumns(int y0, int y1, std::span<const Column> columns);
    void fillColumn(int x, int y0, int y1, const Colour& colour) { fill({x, y0, x + 1, y1}, colour); }
    void setPixel(int x, int y, const Colour& colour);
    /// Lines y0 to y1 - 1, all alike, by what @p colourAt gives for each x.
    template<typename ColourAt>
    void fillLines(int y0, int y1, ColourAt&& colourAt);

private:
    void repeatLine(int y0, int y1);

    VideoBuffer& m_buffer;
    CodeValues m_codes;
    int m_chromaStep; ///< pixels to one sample of a colour difference
};

template<typename ColourAt>
void PictureCanvas::fillLines(int y0, int y1, ColourAt&& colourAt)
{
    for (int x = 0; x < width(); ++x)
        setPixel(x, y0, colourAt(x));
    repeatLine(y0, y1);
}

} // namespace Velmora::Server
