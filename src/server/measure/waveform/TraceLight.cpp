#include "server/measure/waveform/TraceLight.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Velmora::Server {

namespace {

constexpr double kWayLight = 0.42;
constexpr double kSoftLight = 0.16;
constexpr double kSoftWidths = 3.0;
constexpr int kFullSpot = 256;

double coreWidth(TraceLight::Detail detail)
{
    switch (detail) {
    case TraceLight::Detail::Small:
        break;
    case TraceLight::Detail::Medium:
        return 2.5;
    case TraceLight::Detail::Full:
        return 3.0;
    }
    return 1.5;
}

/// How much of a pixel a bar of some width covers, @p distance pixels beside its middle.
double coverage(int distance, double width)
{
    return std::clamp(width / 2.0 + 0.5 - distance, 0.0, 1.0);
}

bool isZero(const void* bytes, std::size_t size)
{
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < size; i += sizeof(sum)) {
        std::uint64_t part = 0;
        std::memcpy(&part, static_cast<const char*>(bytes) + i, sizeof(part));
        sum |= part;
    }
    return sum == 0;
}

/// The pixels of a row, held apart from memory so that nothing keeps them from being vectors.
struct Pixels {
    std::array<std::uint8_t, TraceLight::kColumns> values;

    static Pixels load(const std::uint8_t* row)
    {
        Pixels pixels;
        std::memcpy(pixels.values.data(), row, sizeof(pixels.values));
        return pixels;
    }
    void store(std::uint8_t* row) const { std::memcpy(row, values.data(), sizeof(values)); }
    void raiseTo(const Pixels& other)
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = std::max(values[i], other.values[i]);
    }
    void scale(std::uint16_t share)
    {
        for (auto& value : values)
            value = static_cast<std::uint8_t>(static_cast<std::uint16_t>(value * share) >> 8);
    }
};

std::vector<std::uint8_t> lightTable(std::int64_t most, double fullLight, double gain, double gamma)
{
    std::vector<std::uint8_t> table(static_cast<std::size_t>(most) + 1);
    for (std::size_t i = 1; i < table.size(); ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(most);
        const double light = std::min(1.0, std::pow(gain * share, gamma));
        // What was hit at all can be seen.
        table[i] = static_cast<std::uint8_t>(std::max(1L, std::lround(255.0 * fullLight * light)));
    }
    return table;
}

} // namespace

void TraceLight::configure(const WaveformSettings& settings, Detail detail, int lineCount, int fewestSamples)
{
    const double core = coreWidth(detail);
    m_reach = 0;
    for (int i = 0; i <= kMostReach; ++i) {
        const double flat = coverage(i, core);
        const double soft = coverage(i, kSoftWidths * core) * kSoftLight;
        m_spot[static_cast<std::size_t>(i)] =
            static_cast<std::uint16_t>(std::lround(kFullSpot * (flat + (1.0 - flat) * soft)));
        if (m_spot[static_cast<std::size_t>(i)] > 0)
            m_reach = i;
    }
    if (lineCount == m_lineCount && fewestSamples == m_fewestSamples && settings.brightness == m_brightness
        && settings.gamma == m_gamma)
        return;
    m_lineCount = lineCount;
    m_fewestSamples = fewestSamples;
    m_brightness = settings.brightness;
    m_gamma = settings.gamma;
    const double gain = 2.0 * std::pow(10.0, 2.0 * (std::clamp(settings.brightness, 0.0, 1.0) - 0.5));
    const double gamma = std::clamp(settings.gamma, 0.01, 10.0);
    for (std::size_t i = 0; i < m_lightOfHits.size(); ++i) {
        const auto samples = static_cast<std::int64_t>(fewestSamples) + static_cast<std::int64_t>(i);
        m_lightOfHits[i] = lightTable(samples * lineCount, 1.0, gain, gamma);
    }
    m_lightOfWays = lightTable(lineCount, kWayLight, gain, gamma);
}

void TraceLight::expose(const HitTile& tile, const SampleRange* ranges, int columnCount)
{
    m_rows = tile.rows() - HitTile::kRowsAround;
    const auto size = static_cast<std::size_t>(m_rows * kColumns);
    m_levels.assign(size + 2 * kMostReach * kColumns, 0);
    m_light.assign(size, 0);
    for (int column = 0; column < columnCount; ++column) {
        const int more = std::clamp(ranges[column].end - ranges[column].begin - m_fewestSamples, 0, 1);
        exposeColumn(tile, column, m_lightOfHits[static_cast<std::size_t>(more)]);
    }
    spread();
}

/// Columns hold all their rows one after the other, light all columns of a row. Most rows hold nothing.
void TraceLight::exposeColumn(const HitTile& tile, int column, const std::vector<std::uint8_t>& lightOfHits)
{
    const auto mostHits = static_cast<std::uint32_t>(lightOfHits.size() - 1);
    const auto mostWays = static_cast<std::int32_t>(m_lightOfWays.size() - 1);
    const std::uint8_t* const lightOfWays = m_lightOfWays.data();
    std::uint8_t* const levels = m_levels.data() + kMostReach * kColumns + column;
    std::uint8_t* const light = m_light.data() + column;
    std::int32_t passing = tile.counts(column, 0).ways;
    for (int row = 0; row < m_rows; row += HitTile::kStep) {
        const int end = std::min(row + HitTile::kStep, m_rows);
        if (passing == 0 && end - row == HitTile::kStep && tile.isEmpty(column, row + 1))
            continue;
        for (int i = row; i < end; ++i) {
            const HitTile::Counts counts = tile.counts(column, i + 1);
            passing += counts.ways;
            levels[i * kColumns] = lightOfHits[std::min(counts.samples, mostHits)];
            light[i * kColumns] = lightOfWays[std::min(passing, mostWays)];
        }
    }
}

/// Dark rows above and below the levels stand for those outside, so that no row is a special case.
void TraceLight::spread()
{
    int dark = kMostReach + m_reach; // rows since the last one with light
    for (int row = -m_reach; row < m_rows; ++row) {
        const std::uint8_t* const ahead = levelRow(row + m_reach);
        dark = isZero(ahead, kColumns) ? dark + 1 : 0;
        if (row < 0 || dark > 2 * m_reach)
            continue;
        Pixels light = Pixels::load(m_light.data() + row * kColumns);
        Pixels brightest = Pixels::load(levelRow(row));
        for (int distance = 1; distance <= m_reach; ++distance) {
            // Distances of the same share are scaled together.
            if (spotAt(distance) != spotAt(distance - 1)) {
                brightest.scale(spotAt(distance - 1));
                light.raiseTo(brightest);
                brightest = Pixels::load(levelRow(row - distance));
            }
            brightest.raiseTo(Pixels::load(levelRow(row - distance)));
            brightest.raiseTo(Pixels::load(levelRow(row + distance)));
        }
        brightest.scale(spotAt(m_reach));
        light.raiseTo(brightest);
        light.store(m_light.data() + row * kColumns);
    }
}

void TraceLight::persist(std::uint16_t* phosphor, double attackShare, double decayShare)
{
    const auto attack = static_cast<unsigned>(std::lround(65536.0 * std::clamp(attackShare, 0.0, 1.0)));
    const auto decay = static_cast<unsigned>(std::lround(65536.0 * std::clamp(decayShare, 0.0, 1.0)));
    std::uint8_t* const light = m_light.data();
    for (int i = 0; i < m_rows * kColumns; ++i) {
        const unsigned target = light[i] * 257U;
        const unsigned now = phosphor[i];
        // Rounded up on either way, so that the target is reached.
        const unsigned up = target > now ? ((target - now) * attack + 65535U) >> 16 : 0U;
        const unsigned down = now > target ? ((now - target) * decay + 65535U) >> 16 : 0U;
        phosphor[i] = static_cast<std::uint16_t>(now + up - down);
        light[i] = static_cast<std::uint8_t>(phosphor[i] >> 8);
    }
}

} // namespace Velmora::Server
