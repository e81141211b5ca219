#pragma once

#include "server/measure/waveform/ComponentReader.h"

#include <cstdint>
#include <vector>

namespace Velmora::Server {

/// Which samples of a line fall on a column: from begin to before end, at least one.
struct SampleRange {
    int begin = 0;
    int end = 0;
};

/// How often each level was hit within a few columns of a waveform.
///
/// As many columns as make a strip of the picture that stays in the cache while the whole height of the frame
/// is gone through: 30 to 60 kB.
///
/// Two things are counted for each column and row: the samples on that row, and the lines of the picture that
/// pass it on their way from one sample to the next. The latter are entered as the beginning and the end of
/// each way, one for each line and column, and summed up when they are looked at.
class HitTile {
public:
    static constexpr int kColumns = 16;

    /// One more row above the visible ones and one below take what is out of sight.
    static constexpr int kRowsAround = 2;

    /// Forgets everything. @p mostHits is the largest number of samples that a column can get before the next
    /// reset.
    void reset(int visibleRows, std::int64_t mostHits);

    /// Enters a block of lines into the first @p columnCount columns. @p rowOfIndex says for each index,
    /// masked by
    /// @p indexMask, the row: 0 is above the visible ones. @p ranges count from the first sample of the
    /// block;
    /// @p before is the last sample of the column before.
    void add(const IndexLines& lines, const std::uint16_t* rowOfIndex, unsigned indexMask,
             const SampleRange* ranges, int columnCount, int before);

    /// To be called before looking at the hits.
    void finish();

    int rows() const { return m_rows; }
    /// Whether hits are found in wideHits().
    bool isWide() const { return m_isWide; }
    const std::uint16_t* hits(int column) const { return m_hits.data() + offset(column); }
    const std::uint32_t* wideHits(int column) const { return m_wideHits.data() + offset(column); }
    /// The ways that begin on a row, less those that end there, modulo 2^16. They begin at the end that is
    /// higher up and do not include the lower one.
    const std::uint16_t* ways(int column) const { return m_ways.data() + offset(column); }

private:
    std::size_t offset(int column) const { return static_cast<std::size_t>(column * m_rows); }
    void flush();

    int m_rows = 0;
    bool m_isWide = false;
    std::int64_t m_hitsUntilFlush = 0;
    std::vector<std::uint16_t> m_hits;
    std::vector<std::uint32_t> m_wideHits;
    std::vector<std::uint16_t> m_ways;
};

} // namespace Velmora::Server
