#pragma once

#include "server/measure/waveform/HitTile.h"
#include "server/measure/waveform/WaveformSettings.h"

#include <array>
#include <cstdint>
#include <vector>

namespace Velmora::Server {

/// Turns the hits of a tile into light: 0 to 255 for each pixel, row by row.
///
/// A level that a share s of all samples of its column has gets min(1, (gain * s)^gamma) of light, where the
/// brightness sets the gain. It is drawn as a spot, flat in the middle and with a soft edge of three times
/// its width at 16 %; the ways between levels are drawn without a spot, at 42 %. Where several fall on one
/// pixel the brightest counts, so that no light is ever more than full.
class TraceLight {
public:
    using Detail = WaveformTypes::WaveformGeometry::Detail;
    static constexpr int kColumns = HitTile::kColumns;

    /// What belongs to all columns with the same number of samples in a line.
    void configure(const WaveformSettings& settings, Detail detail, int lineCount, int fewestSamples);

    /// Takes the first @p columnCount columns of a tile. @p ranges are those of the columns, with as many
    /// samples as the least one of configure() or one more.
    void expose(const HitTile& tile, const SampleRange* ranges, int columnCount);
    /// Moves @p phosphor, kColumns values of 16 bits for each row, towards the light, and the light to it.
    /// The shares are parts of the remaining difference.
    void persist(std::uint16_t* phosphor, double attackShare, double decayShare);

    int rows() const { return m_rows; }
    /// The light of a row, kColumns values.
    const std::uint8_t* row(int row) const { return m_light.data() + row * kColumns; }

private:
    static constexpr int kMostReach = 6;

    void exposeColumn(const HitTile& tile, int column, const std::vector<std::uint8_t>& lightOfHits);
    void spread();
    std::uint16_t spotAt(int distance) const { return m_spot[static_cast<std::size_t>(distance)]; }
    /// Also of the kMostReach rows before the first one and behind the last.
    const std::uint8_t* levelRow(int row) const { return m_levels.data() + (row + kMostReach) * kColumns; }

    int m_rows = 0;
    int m_lineCount = 0;
    int m_fewestSamples = 0;
    double m_brightness = -1.0;
    double m_gamma = -1.0;
    int m_reach = 0;
    std::array<std::uint16_t, kMostReach + 1> m_spot{}; ///< by the distance in rows, 256 is full
    std::array<std::vector<std::uint8_t>, 2>
        m_lightOfHits; ///< for columns of the fewest samples and one more
    std::vector<std::uint8_t> m_lightOfWays;
    std::vector<std::uint8_t> m_levels; ///< of the samples, before the spot is applied
    std::vector<std::uint8_t> m_light;
};

} // namespace Velmora::Server
