#include "server/sources/PictureCanvas.h"

#include "server/sources/VideoFormats.h"

#include <algorithm>

namespace Velmora::Server {

PictureCanvas::PictureCanvas(VideoBuffer& buffer)
    : m_buffer(buffer)
    , m_codes(buffer.format())
    , m_chromaStep(VideoFormats::isChromaHalved(buffer.format().sampling) ? 2 : 1)
{
    // No pattern has holes.
    if (buffer.planeCount() > 3) {
        for (int y = 0; y < height(); ++y)
            std::fill_n(buffer.line(3, y), width(), m_codes.level(1.0));
    }
}

void PictureCanvas::fill(const PictureArea& area, const Colour& colour, int lineStep)
{
    for (int plane = 0; plane < 3; ++plane) {
        const int step = plane == 0 ? 1 : m_chromaStep;
        const int from = (area.x0 + step - 1) / step;
        const int to = (area.x1 + step - 1) / step;
        for (int y = area.y0; y < area.y1; y += lineStep) {
            std::uint16_t* const line = m_buffer.line(plane, y);
            std::fill(line + from, line + to, colour[static_cast<std::size_t>(plane)]);
        }
    }
}

void PictureCanvas::fillColumns(int y0, int y1, std::span<const Column> columns)
{
    int x = 0;
    for (const Column& column : columns) {
        fill({x, y0, column.end, y1}, column.colour);
        x = column.end;
    }
}

void PictureCanvas::setPixel(int x, int y, const Colour& colour)
{
    m_buffer.line(0, y)[x] = colour[0];
    if (x % m_chromaStep != 0)
        return;
    m_buffer.line(1, y)[x / m_chromaStep] = colour[1];
    m_buffer.line(2, y)[x / m_chromaStep] = colour[2];
}

void PictureCanvas::repeatLine(int y0, int y1)
{
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = y0 + 1; y < y1; ++y)
            std::copy_n(m_buffer.line(plane, y0), m_buffer.planeWidth(plane), m_buffer.line(plane, y));
    }
}

} // namespace Velmora::Server
