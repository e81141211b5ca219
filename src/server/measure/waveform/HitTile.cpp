#include "server/measure/waveform/HitTile.h"

#include <algorithm>
#include <cstring>

namespace Velmora::Server {

namespace {

/// The difference in the upper half of a word must be told from its complement.
constexpr std::int64_t kMostNarrowHits = 32767;
constexpr std::uint32_t kOneWay = 0x10000;

constexpr int kLinesAhead = 8;
constexpr int kSamplesPerFetch = 32; // in one line of the cache

} // namespace

void HitTile::reset(int visibleRows, const SampleRange* ranges, int columnCount, int before,
                    std::int64_t mostHits)
{
    m_rows = visibleRows + kRowsAround;
    m_isWide = mostHits > kMostNarrowHits;
    m_hitsUntilFlush = kMostNarrowHits;
    m_before = before;
    const auto size = static_cast<std::size_t>(m_rows * kColumns);
    m_counts.assign(size, 0);
    m_wideCounts.assign(m_isWide ? size : 0, {});

    m_sampleIndexes.clear();
    m_offsets.clear();
    m_mostOfColumn = 1;
    m_isContiguous = true;
    m_firstSample = columnCount > 0 ? ranges[0].begin : 0;
    for (int column = 0; column < columnCount; ++column) {
        const SampleRange& range = ranges[column];
        m_mostOfColumn = std::max(m_mostOfColumn, range.end - range.begin);
        for (int sample = range.begin; sample < range.end; ++sample) {
            m_isContiguous = m_isContiguous && sample == m_firstSample + static_cast<int>(m_offsets.size());
            m_sampleIndexes.push_back(sample);
            m_offsets.push_back(static_cast<std::uint32_t>(column * m_rows));
        }
    }
}

void HitTile::add(const IndexLines& lines, const std::uint16_t* rowOfIndex, unsigned indexMask)
{
    if (m_offsets.empty())
        return;
    const int first = std::min(m_before, m_firstSample);
    const int end = std::max(m_before, m_sampleIndexes.back()) + 1;
    const auto bytes = static_cast<std::size_t>(end - first) * sizeof(std::uint16_t);
    reserveHits(static_cast<std::int64_t>(m_mostOfColumn) * lines.count);
    for (int line = 0; line < lines.count;) {
        const std::uint16_t* const samples = lines.samples + line * lines.stride;
        // Each line is far from the one before, which the processor does not foresee.
        for (int sample = first; sample < end + kSamplesPerFetch; sample += kSamplesPerFetch)
            __builtin_prefetch(samples + kLinesAhead * lines.stride + sample);
        // Test patterns have many equal lines, which are counted at once.
        std::uint32_t times = 1;
        while (line + static_cast<int>(times) < lines.count
               && std::memcmp(samples + first, samples + times * lines.stride + first, bytes) == 0)
            ++times;
        if (m_isContiguous)
            addLine<true>(samples, times, rowOfIndex, indexMask);
        else
            addLine<false>(samples, times, rowOfIndex, indexMask);
        line += static_cast<int>(times);
    }
}

/// No branch depends on a sample, and every sample costs two additions in memory.
template<bool Contiguous>
void HitTile::addLine(const std::uint16_t* samples, std::uint32_t times, const std::uint16_t* rowOfIndex,
                      unsigned indexMask)
{
    const std::size_t count = m_offsets.size();
    const std::uint32_t* const offsets = m_offsets.data();
    const int* const indexes = m_sampleIndexes.data();
    std::uint32_t* const counts = m_counts.data();
    const std::uint32_t downwards = kOneWay * times;
    unsigned last = rowOfIndex[samples[m_before] & indexMask];
    if (Contiguous)
        samples += m_firstSample;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned row =
            rowOfIndex[samples[Contiguous ? i : static_cast<std::size_t>(indexes[i])] & indexMask];
        std::uint32_t* const column = counts + offsets[i];
        const std::uint32_t way = row <= last ? downwards : 0U - downwards;
        column[row] += times + way;
        column[last] -= way;
        last = row;
    }
}

void HitTile::finish()
{
    if (m_isWide)
        flush();
}

void HitTile::reserveHits(std::int64_t hits)
{
    if (!m_isWide)
        return;
    m_hitsUntilFlush -= hits;
    if (m_hitsUntilFlush >= 0)
        return;
    flush();
    m_hitsUntilFlush = kMostNarrowHits - hits;
}

void HitTile::flush()
{
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        const Counts counts = unpack(m_counts[i]);
        m_wideCounts[i].samples += counts.samples;
        m_wideCounts[i].ways += counts.ways;
        m_counts[i] = 0;
    }
}

} // namespace Velmora::Server
