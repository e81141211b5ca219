#pragma once

#include "server/measure/waveform/LevelFilter.h"
#include "server/measure/waveform/WaveformSettings.h"
#include "server/sources/VideoFrame.h"
#include "types/waveform/CodeScale.h"

#include <array>
#include <cstdint>
#include <vector>

namespace Velmora::Server {

/// A block of lines of one component as a HitTile takes them. What a sample stands for is told by
/// ComponentReader::codeOfIndex().
struct IndexLines {
    const std::uint16_t* samples = nullptr; ///< of the first line, the first wanted one
    std::ptrdiff_t stride = 0;
    int count = 0;
};

/// Reads one component of a picture, filtered, whether the picture carries it or it has to be made of three
/// others.
///
/// Without a filter and a matrix the codes are used where they lie. Otherwise levels are computed on the
/// scale of 12 bits, which keeps two more bits of a 10-bit signal's filtered levels, with room above and
/// below for what filters and matrices add. Chroma of 4:2:2 stands at the even luma samples; for the matrix
/// the odd ones are the mean of their neighbours. The chroma of 4:2:0 counts for two lines.
class ComponentReader {
public:
    /// The most lines that read() gives at once.
    static constexpr int kMostLines = 16;

    ComponentReader(const VideoFrame& frame, WaveformTypes::Component component,
                    const WaveformSettings& settings);

    /// Whether the picture has what the component needs; nothing else may be called without it.
    bool isPresent() const { return m_width > 0 && m_height > 0; }
    int width() const { return m_width; }
    int height() const { return m_height; }

    /// Samples are looked up by these bits, so that wrong ones cannot lead astray.
    unsigned indexMask() const { return m_indexMask; }
    /// The code at the depth of the signal.
    double codeOfIndex(unsigned index) const;
    const WaveformTypes::CodeScale& scale() const { return m_scale; }

    /// The samples from @p begin to before @p end of some lines of a frame like that of the constructor. They
    /// hold until the next call.
    IndexLines read(const VideoFrame& frame, int firstLine, int lineCount, int begin, int end);

private:
    void prepareMatrix(const VideoFrame& frame, WaveformTypes::Component component,
                       const WaveformSettings& settings);
    void readLine(const VideoFrame& frame, int line, int begin, int end, std::uint16_t* out);
    void levelsOf(const VideoPlane& plane, int line, int begin, int count, std::int16_t* out) const;
    const std::int16_t* inputLevels(const VideoFrame& frame, std::size_t number, int line, int begin,
                                    int count);
    void matrixLevels(const VideoFrame& frame, int line, int begin, int count, std::int16_t* out);

    int m_bits;
    bool m_isRgb;
    LevelFilter m_filter;
    WaveformTypes::CodeScale m_scale;
    int m_plane = -1; ///< the plane of the component, or -1: made by the matrix
    int m_width = 0;
    int m_height = 0;
    unsigned m_indexMask = 0;
    bool m_isDirect = false;

    std::array<std::int16_t, 3> m_factors{}; ///< with kFactorBits bits after the point
    std::array<int, 3> m_zeroLevels{}; ///< of the inputs
    int m_outputZero = 0;
    std::array<std::vector<std::int16_t>, 3> m_inputs;
    std::vector<std::int16_t> m_halfWidth;
    std::vector<std::int16_t> m_levels;
    std::vector<std::int16_t> m_filtered;
    std::vector<std::uint16_t> m_lines;
};

} // namespace Velmora::Server
