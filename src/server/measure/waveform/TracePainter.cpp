#include "server/measure/waveform/TracePainter.h"

#include <algorithm>
#include <cstring>

namespace Velmora::Server {

namespace {

using WaveformTypes::ColourMode;
using WaveformTypes::Component;

constexpr std::uint32_t kNeutral = 0xE6E6E6;
constexpr std::uint32_t kOutOfRange = 0xFF4B3E;

std::uint32_t colourOf(Component component)
{
    static constexpr std::array<std::uint32_t, WaveformTypes::kComponents> kColours{
        kNeutral, 0x58B0FF, 0xFF70C0, 0xFF5A50, 0x3FD060, 0x5090FF, 0xB0B0B0};
    return kColours[static_cast<std::size_t>(component)];
}

/// The sum of each byte, at most 255.
std::uint32_t addSaturated(std::uint32_t a, std::uint32_t b)
{
    constexpr std::uint32_t kEveryOther = 0x00FF00FF;
    const auto add = [](std::uint32_t x, std::uint32_t y) {
        const std::uint32_t sum = x + y;
        const std::uint32_t carries = (sum >> 8) & 0x00010001;
        return (sum | (carries * 0xFF)) & kEveryOther;
    };
    return add(a & kEveryOther, b & kEveryOther) | add((a >> 8) & kEveryOther, (b >> 8) & kEveryOther) << 8;
}

bool isZero(const std::uint8_t* light)
{
    std::array<std::uint64_t, TracePainter::kStride / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), light, TracePainter::kStride);
    std::uint64_t sum = 0;
    for (const std::uint64_t word : words)
        sum |= word;
    return sum == 0;
}

/// Nearly all strips have the full width, for which this is a few instructions instead of a call.
void clear(std::uint32_t* pixels, int columns)
{
    if (columns == TracePainter::kStride)
        std::memset(pixels, 0, TracePainter::kStride * sizeof(*pixels));
    else
        std::fill_n(pixels, columns, 0);
}

} // namespace

TracePainter::TracePainter(ColourMode mode, Component component)
    : m_inRange(tableFor(mode == ColourMode::Colour ? colourOf(component) : kNeutral))
    , m_outOfRange(mode == ColourMode::Highlight ? tableFor(kOutOfRange) : m_inRange)
{
}

TracePainter::Table TracePainter::tableFor(std::uint32_t rgb)
{
    Table table{};
    for (std::uint32_t light = 0; light < table.size(); ++light) {
        const auto scaled = [&](int shift) { return ((rgb >> shift & 0xFF) * light + 127) / 255 << shift; };
        table[light] = light << 24 | scaled(16) | scaled(8) | scaled(0);
    }
    return table;
}

void TracePainter::paint(const Strip& strip, std::uint32_t* pixels, std::ptrdiff_t pixelStride) const
{
    for (int row = 0; row < strip.rows; ++row, pixels += pixelStride) {
        const std::uint8_t* const light = strip.light + row * kStride;
        const bool isDark = isZero(light);
        const bool isInRange = row >= strip.firstRowInRange && row <= strip.lastRowInRange;
        const Table& table = isInRange ? m_inRange : m_outOfRange;
        if (isDark && strip.isFirstLayer)
            clear(pixels, strip.columns);
        else if (strip.isFirstLayer)
            std::transform(light, light + strip.columns, pixels,
                           [&](std::uint8_t value) { return table[value]; });
        else if (!isDark)
            for (int i = 0; i < strip.columns; ++i)
                pixels[i] = addSaturated(pixels[i], table[light[i]]);
    }
}

} // namespace Velmora::Server
