#include "server/measure/waveform/ComponentReader.h"

#include "server/measure/waveform/ColourMatrix.h"
#include "server/sources/VideoFormats.h"

#include <algorithm>
#include <cmath>

namespace Velmora::Server {

namespace {

using Sdi::PayloadId::BitDepth;
using Sdi::PayloadId::SampleStructure;
using WaveformTypes::CodeScale;
using WaveformTypes::Component;

constexpr int kLevelBits = 12;
/// Levels from -2048 to 6143 are told apart: from about -65 to 168 % of a narrow range.
constexpr int kLowestLevel = -2048;
constexpr unsigned kLevelIndexMask = 8191;
constexpr int kHighestLevel = kLowestLevel + static_cast<int>(kLevelIndexMask);
/// The largest factor is below 2, so that factors fit into 16 bits.
constexpr int kFactorBits = 14;
constexpr int kLinesAhead = 8;
constexpr int kSamplesPerFetch = 32; // in one line of the cache

bool isFullRange(BitDepth depth)
{
    return depth == BitDepth::Bits10FullRange || depth == BitDepth::Bits12FullRange;
}

bool isRgb(SampleStructure sampling)
{
    switch (sampling) {
    case SampleStructure::Rgb444:
    case SampleStructure::RgbA4444:
    case SampleStructure::RgbD4444:
    case SampleStructure::Xyz444: // shown as it is, X in the place of R
        return true;
    default:
        return false;
    }
}

CodeScale::Range rangeOf(const VideoFrame& frame, const WaveformSettings& settings)
{
    return isFullRange(frame.format.depth) ? CodeScale::fullRange(settings.fullRangeMode)
                                           : CodeScale::Range::Narrow;
}

CodeScale scaleOf(const VideoFrame& frame, const WaveformSettings& settings, bool colourDifference)
{
    return {VideoFormats::bitsOf(frame.format.depth), rangeOf(frame, settings), colourDifference};
}

/// The plane that holds a component as it is, or -1.
int planeOf(Component component, bool rgb)
{
    switch (component) {
    case Component::Y:
    case Component::Cb:
    case Component::Cr:
        return rgb ? -1 : static_cast<int>(component) - static_cast<int>(Component::Y);
    case Component::Red:
    case Component::Green:
    case Component::Blue:
        return rgb ? static_cast<int>(component) - static_cast<int>(Component::Red) : -1;
    case Component::Alpha:
        break;
    }
    return 3;
}

bool isUsable(const VideoPlane& plane)
{
    return plane.samples != nullptr && plane.width > 0 && plane.height > 0 && plane.stride >= plane.width;
}

int lineOfPlane(const VideoPlane& plane, int line, int height)
{
    return plane.height == height ? line
                                  : static_cast<int>(static_cast<std::int64_t>(line) * plane.height / height);
}

} // namespace

ComponentReader::ComponentReader(const VideoFrame& frame, Component component,
                                 const WaveformSettings& settings)
    : m_bits(VideoFormats::bitsOf(frame.format.depth))
    , m_isRgb(isRgb(frame.format.sampling))
    , m_filter(settings.filter)
    , m_scale(scaleOf(frame, settings, isColourDifference(component)))
    , m_plane(planeOf(component, m_isRgb))
{
    const auto& planes = frame.planes;
    const bool isThere = m_plane >= 0 ? isUsable(planes[static_cast<std::size_t>(m_plane)])
                                      : std::all_of(planes.begin(), planes.begin() + 3, isUsable);
    if (!isThere)
        return;
    const VideoPlane& first = planes[static_cast<std::size_t>(std::max(0, m_plane))];
    m_width = first.width;
    m_height = first.height;
    m_isDirect = m_plane >= 0 && m_filter.isFlat();
    m_indexMask = m_isDirect ? (1U << m_bits) - 1 : kLevelIndexMask;
    if (m_plane < 0)
        prepareMatrix(frame, component, settings);
}

void ComponentReader::prepareMatrix(const VideoFrame& frame, Component component,
                                    const WaveformSettings& settings)
{
    const int levelsPerCode = 1 << (kLevelBits - m_bits);
    const auto wanted =
        ColourMatrix::factors(component, m_isRgb, settings.colourimetry.value_or(frame.format.colourimetry));
    // Zero of Cb and Cr is in the middle of their scale.
    const auto zeroOf = [&](const CodeScale& scale, bool colourDifference) {
        return static_cast<int>(std::lround(scale.code(colourDifference ? 50.0 : 0.0) * levelsPerCode));
    };
    for (std::size_t i = 0; i < m_factors.size(); ++i) {
        const bool colourDifference = !m_isRgb && i > 0;
        const CodeScale input = scaleOf(frame, settings, colourDifference);
        m_factors[i] = static_cast<std::int16_t>(
            std::lround(wanted[i] * m_scale.spanCodes() / input.spanCodes() * (1 << kFactorBits)));
        m_zeroLevels[i] = zeroOf(input, colourDifference);
    }
    m_outputZero = zeroOf(m_scale, isColourDifference(component));
}

double ComponentReader::codeOfIndex(unsigned index) const
{
    if (m_isDirect)
        return index;
    return (static_cast<int>(index) + kLowestLevel) / static_cast<double>(1 << (kLevelBits - m_bits));
}

IndexLines ComponentReader::read(const VideoFrame& frame, int firstLine, int lineCount, int begin, int end)
{
    lineCount = std::min(lineCount, kMostLines);
    if (m_isDirect) {
        const VideoPlane& plane = frame.planes[static_cast<std::size_t>(m_plane)];
        return {plane.line(firstLine) + begin, plane.stride, lineCount};
    }
    const auto stride = static_cast<std::size_t>(end - begin);
    m_lines.resize(stride * kMostLines);
    for (int i = 0; i < lineCount; ++i)
        readLine(frame, firstLine + i, begin, end, m_lines.data() + static_cast<std::size_t>(i) * stride);
    return {m_lines.data(), static_cast<std::ptrdiff_t>(stride), lineCount};
}

void ComponentReader::readLine(const VideoFrame& frame, int line, int begin, int end, std::uint16_t* out)
{
    const int margin = m_filter.margin();
    const int count = end - begin;
    m_levels.resize(static_cast<std::size_t>(count + 2 * margin));
    m_filtered.resize(static_cast<std::size_t>(count));
    if (m_plane >= 0) {
        const VideoPlane& plane = frame.planes[static_cast<std::size_t>(m_plane)];
        levelsOf(plane, line, begin - margin, count + 2 * margin, m_levels.data());
    } else {
        matrixLevels(frame, line, begin - margin, count + 2 * margin, m_levels.data());
    }
    m_filter.apply(m_levels.data(), m_filtered.data(), count);
    const std::int16_t* const filtered = m_filtered.data();
    for (int i = 0; i < count; ++i) {
        const auto level = std::clamp<std::int16_t>(filtered[i], kLowestLevel, kHighestLevel);
        out[i] = static_cast<std::uint16_t>(level - kLowestLevel);
    }
}

/// The first and the last sample go on beyond the line's ends.
void ComponentReader::levelsOf(const VideoPlane& plane, int line, int begin, int count,
                               std::int16_t* out) const
{
    const std::uint16_t* const samples = plane.line(line);
    const int mask = (1 << m_bits) - 1;
    const int shift = kLevelBits - m_bits;
    const int before = std::clamp(-begin, 0, count);
    const int inside = std::clamp(plane.width - begin, before, count);
    // Each line is far from the one before, which the processor does not foresee.
    if (line + kLinesAhead < plane.height)
        for (int i = before; i < inside + kSamplesPerFetch; i += kSamplesPerFetch)
            __builtin_prefetch(samples + kLinesAhead * plane.stride + begin + i);
    const auto level = [&](int x) { return static_cast<std::int16_t>((samples[x] & mask) << shift); };
    std::fill_n(out, before, level(0));
    for (int i = before; i < inside; ++i)
        out[i] = level(begin + i);
    std::fill(out + inside, out + count, level(plane.width - 1));
}

/// Of the matrix's input @p number; @p count levels in m_inputs, the first one returned.
const std::int16_t* ComponentReader::inputLevels(const VideoFrame& frame, std::size_t number, int line,
                                                 int begin, int count)
{
    const VideoPlane& plane = frame.planes[number];
    std::vector<std::int16_t>& input = m_inputs[number];
    input.resize(static_cast<std::size_t>(count) + 2);
    if (m_factors[number] == 0)
        return input.data();
    const int planeLine = lineOfPlane(plane, line, m_height);
    if (plane.width * 2 > m_width + 1) {
        levelsOf(plane, planeLine, begin, count, input.data());
        return input.data();
    }
    // From the even sample at or before begin, which may lie before the line.
    const int firstPair = begin >> 1;
    const int pairs = count / 2 + 1;
    m_halfWidth.resize(static_cast<std::size_t>(pairs) + 1);
    levelsOf(plane, planeLine, firstPair, pairs + 1, m_halfWidth.data());
    const std::int16_t* const half = m_halfWidth.data();
    std::int16_t* const full = input.data();
    for (int i = 0; i < pairs; ++i) {
        full[2 * i] = half[i];
        full[2 * i + 1] = static_cast<std::int16_t>((half[i] + half[i + 1] + 1) >> 1);
    }
    return full + (begin - 2 * firstPair);
}

void ComponentReader::matrixLevels(const VideoFrame& frame, int line, int begin, int count, std::int16_t* out)
{
    const std::int16_t* const a = inputLevels(frame, 0, line, begin, count);
    const std::int16_t* const b = inputLevels(frame, 1, line, begin, count);
    const std::int16_t* const c = inputLevels(frame, 2, line, begin, count);
    const auto [factorA, factorB, factorC] = m_factors;
    const int constant = (m_outputZero << kFactorBits) + (1 << (kFactorBits - 1)) - factorA * m_zeroLevels[0]
        - factorB * m_zeroLevels[1] - factorC * m_zeroLevels[2];
    for (int i = 0; i < count; ++i)
        out[i] = static_cast<std::int16_t>((a[i] * factorA + b[i] * factorB + c[i] * factorC + constant)
                                           >> kFactorBits);
}

} // namespace Velmora::Server
