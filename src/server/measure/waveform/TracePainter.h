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

    static constexpr int kStride = 64;
    /// What is to be painted: rows of kStride values of light, dark behind the columns in use.
    struct Strip {
        const std::uint8_t* light = nullptr;
        int columns = 0; ///< up to kStride
        int rows = 0;
        int firstRowInRange = 0;
        int lastRowInRange = 0;
        bool isFirstLayer = true; ///< replaces what was there; others add to it
    };
    /// @p pixels are those of the first row, @p pixelStride from row to row.
    void paint(const Strip& strip, std::uint32_t* pixels, std::ptrdiff_t pixelStride) const;

private:
    using Table = std::array<std::uint32_t, 256>;
    static Table tableFor(std::uint32_t rgb);

    Table m_inRange{};
    Table m_outOfRange{};
};

} // namespace Velmora::Server
