#pragma once

#include "server/measure/waveform/ComponentReader.h"

#include <cstdint>
#include <cstring>
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
/// is gone through.
///
/// Two things are counted for each column and row: the samples on that row, and the ways that pass it from
/// one sample to the next. A way is entered by its two ends only and is summed up along the column when it is
/// looked at. One of its ends is a sample, too; so both counts share a word, the samples in its lower half.
class HitTile {
public:
    static constexpr int kColumns = 64;
    /// One more row above the visible ones and one below take what is out of sight.
    static constexpr int kRowsAround = 2;

    /// The counts of one column and row.
    struct Counts {
        std::uint32_t samples = 0;
        /// Ways whose upper end is here, less those whose lower end is; the lower end itself is not passed.
        std::int32_t ways = 0;
    };

    /// Forgets everything and takes @p columnCount columns. @p ranges count from the first sample of the
    /// lines to come; @p before is the sample from which the way into the first column comes. @p mostHits is
    /// the largest number of samples that a column can get before the next reset.
    void reset(int visibleRows, const SampleRange* ranges, int columnCount, int before,
               std::int64_t mostHits);

    /// Enters a block of lines. @p rowOfIndex says for each index, masked by @p indexMask, the row: 0 is
    /// above the visible ones.
    void add(const IndexLines& lines, const std::uint16_t* rowOfIndex, unsigned indexMask);

    /// To be called before looking at the counts.
    void finish();

    int rows() const { return m_rows; }
    static constexpr int kStep = 8;
    /// Whether the kStep rows from @p row on are known to hold nothing.
    bool isEmpty(int column, int row) const
    {
        if (m_isWide)
            return false;
        std::uint64_t words[kStep / 2];
        std::memcpy(words, m_counts.data() + column * m_rows + row, sizeof(words));
        return (words[0] | words[1] | words[2] | words[3]) == 0;
    }
    Counts counts(int column, int row) const
    {
        const auto place = static_cast<std::size_t>(column * m_rows + row);
        return m_isWide ? m_wideCounts[place] : unpack(m_counts[place]);
    }

private:
    static Counts unpack(std::uint32_t packed)
    {
        return {packed & 0xFFFFU, static_cast<std::int16_t>(packed >> 16)};
    }
    template<bool Contiguous>
    void addLine(const std::uint16_t* samples, std::uint32_t times, const std::uint16_t* rowOfIndex,
                 unsigned indexMask);
    void reserveHits(std::int64_t hits);
    void flush();

    int m_rows = 0;
    int m_before = 0;
    int m_firstSample = 0;
    bool m_isContiguous = true;
    bool m_isWide = false;
    int m_mostOfColumn = 1; ///< samples of a line
    std::int64_t m_hitsUntilFlush = 0;
    std::vector<int> m_sampleIndexes; ///< of all columns, one after the other
    std::vector<std::uint32_t> m_offsets; ///< where the column of that sample begins
    std::vector<std::uint32_t> m_counts;
    std::vector<Counts> m_wideCounts;
};

} // namespace Velmora::Server
