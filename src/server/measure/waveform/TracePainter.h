#pragma once

#include "types/waveform/WaveformTypes.h"

#include <array>
#include <cstdint>

namespace Velmora::Server {

/// Somebody's memory for a picture of premultiplied ARGB, a 32-bit word for each pixel (as
/// QImage::Format_ARGB32_Premultiplied).
struct PixelBuffer {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0; ///< pixels from one row to the next

    std::uint32_t* row(int y) const { return pixels + y * stride; }
};

/// Gives light its colour: the colour of the component, scaled by the light, on a transparent ground.
///
/// So a client may lay the picture over its graticule, as the drawings have it, or over plain black. The
/// opacity is the light. Highlight is monochrome, and red where a level is outside 0 to 100 %.
class TracePainter {
public:
    TracePainter() = default;
    TracePainter(WaveformTypes::ColourMode mode, WaveformTypes::Component component);

    /// Paints @p count pixels; null for no light at all. The first layer replaces what was there, others add
    /// to it.
    void paint(const std::uint8_t* light, int count, bool inRange, bool firstLayer,
               std::uint32_t* pixels) const;

private:
    using Table = std::array<std::uint32_t, 256>;
    static Table tableFor(std::uint32_t rgb);

    Table m_inRange{};
    Table m_outOfRange{};
};

} // namespace Velmora::Server
