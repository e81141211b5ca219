#include "server/measure/waveform/HitTile.h"

#include <algorithm>

namespace Velmora::Server {

namespace {

constexpr std::int64_t kMostNarrowHits = 65535;

} // namespace

void HitTile::reset(int visibleRows, std::int64_t mostHits)
{
    m_rows = visibleRows + kRowsAround;
    m_isWide = mostHits > kMostNarrowHits;
    m_hitsUntilFlush = kMostNarrowHits;
    const auto size = static_cast<std::size_t>(m_rows * kColumns);
    m_hits.assign(size, 0);
    m_ways.assign(size, 0);
    m_wideHits.assign(m_isWide ? size : 0, 0);
}

void HitTile::add(const IndexLines& lines, const std::uint16_t* rowOfIndex, unsigned indexMask,
                  const SampleRange* ranges, int columnCount, int before)
{
    if (m_isWide) {
        std::int64_t most = 0;
        for (int column = 0; column < columnCount; ++column)
            most = std::max<std::int64_t>(most, ranges[column].end - ranges[column].begin);
        m_hitsUntilFlush -= most * lines.count;
        if (m_hitsUntilFlush < 0) {
            flush();
            m_hitsUntilFlush = kMostNarrowHits - most * lines.count;
        }
    }
    const auto rows = static_cast<std::size_t>(m_rows);
    for (int line = 0; line < lines.count; ++line) {
        const std::uint16_t* const samples = lines.samples + line * lines.stride;
        std::uint16_t* hits = m_hits.data();
        std::uint16_t* ways = m_ways.data();
        unsigned last = rowOfIndex[samples[before] & indexMask];
        for (int column = 0; column < columnCount; ++column) {
            unsigned highest = last;
            unsigned lowest = last;
            const std::uint16_t* const end = samples + ranges[column].end;
            for (const std::uint16_t* sample = samples + ranges[column].begin; sample != end; ++sample) {
                last = rowOfIndex[*sample & indexMask];
                ++hits[last];
                highest = std::min(highest, last);
                lowest = std::max(lowest, last);
            }
            ++ways[highest];
            --ways[lowest];
            hits += rows;
            ways += rows;
        }
    }
}

void HitTile::finish()
{
    if (m_isWide)
        flush();
}

void HitTile::flush()
{
    for (std::size_t i = 0; i < m_hits.size(); ++i)
        m_wideHits[i] += m_hits[i];
    std::fill(m_hits.begin(), m_hits.end(), std::uint16_t{0});
}

} // namespace Velmora::Server
