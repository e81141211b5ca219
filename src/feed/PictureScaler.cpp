#include "feed/PictureScaler.h"

#include <algorithm>
#include <array>

namespace Velmora::Feed {

namespace {

/// Shares of a pixel at the edges of an area, in this many parts.
constexpr int kParts = 256;

/// The source pixels of a target pixel: the first one, and how much of each counts.
struct Area {
    int first = 0;
    std::vector<std::uint32_t> shares;
};

std::vector<Area> areas(int from, int to)
{
    std::vector<Area> all(static_cast<std::size_t>(to));
    for (int i = 0; i < to; ++i) {
        const auto begin = static_cast<std::int64_t>(i) * from * kParts / to;
        const auto end = static_cast<std::int64_t>(i + 1) * from * kParts / to;
        Area& area = all[static_cast<std::size_t>(i)];
        area.first = static_cast<int>(begin / kParts);
        for (std::int64_t x = area.first; x * kParts < end; ++x)
            area.shares.push_back(
                static_cast<std::uint32_t>(std::min(end, (x + 1) * kParts) - std::max(begin, x * kParts)));
    }
    return all;
}

/// The weighted sums of the four bytes of pixels. They do not overflow: one area is of one picture.
struct Sums {
    std::array<std::uint64_t, 4> bytes{};

    void add(std::uint32_t pixel, std::uint64_t share)
    {
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] += (pixel >> (8 * i) & 0xFF) * share;
    }
    std::uint32_t mean(std::uint64_t whole) const
    {
        std::uint32_t pixel = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i)
            pixel |= static_cast<std::uint32_t>((bytes[i] + whole / 2) / whole) << (8 * i);
        return pixel;
    }
};

std::uint32_t meanOf(const PictureView& source, const Area& columns, const Area& rows)
{
    Sums sums;
    std::uint64_t whole = 0;
    for (std::size_t y = 0; y < rows.shares.size(); ++y) {
        const std::uint32_t* const pixels =
            source.pixels + (rows.first + static_cast<std::ptrdiff_t>(y)) * source.stride + columns.first;
        for (std::size_t x = 0; x < columns.shares.size(); ++x) {
            const std::uint64_t share = static_cast<std::uint64_t>(rows.shares[y]) * columns.shares[x];
            whole += share;
            sums.add(pixels[x], share);
        }
    }
    return sums.mean(whole);
}

} // namespace

std::vector<std::uint32_t> reduced(const PictureView& source, int width, int height, PictureView& picture)
{
    picture = source;
    picture.width = std::clamp(width, 1, source.width);
    picture.height = std::clamp(height, 1, source.height);
    picture.stride = picture.width;
    const auto columns = areas(source.width, picture.width);
    const auto rows = areas(source.height, picture.height);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(columns.size() * rows.size());
    for (const Area& row : rows)
        for (const Area& column : columns)
            pixels.push_back(meanOf(source, column, row));
    picture.pixels = pixels.data();
    return pixels;
}

} // namespace Velmora::Feed
