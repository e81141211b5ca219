#include "server/sources/patterns/HdrBars.h"

#include "server/sources/patterns/BarColours.h"
#include "server/sources/patterns/ScaledEdges.h"
#include "server/sources/patterns/TransferFunctions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Velmora::Server {

using Sdi::PayloadId::TransferCurve;

namespace {

constexpr double kHlgWhite = 0.75;
constexpr double kPqWhite = 0.58;
constexpr double kSideGrey = 0.4;

// Ends of columns at 1920, lines at 1080.
constexpr int kLeftEnd = 240;
constexpr std::array kBarEnds{446, 652, 858, 1062, 1268, 1474, 1680};
/// Each bar but the first is two steps wide.
constexpr std::array kStairEnds{446, 549, 652, 755, 858, 960, 1062, 1165, 1268, 1371, 1474, 1577, 1680};
constexpr int kRightStart = 1680;
constexpr int kSmallBar = 80;
constexpr std::array kRows{90, 630, 720, 810};

/// The ramp passes one 10-bit code a pixel and has code 5 at this pixel. What lies before it is at its lowest
/// and what lies behind at its highest code; that this goes for the whole line is not confirmed.
constexpr int kNarrowRampAt5 = 799;
constexpr int kFullRampAt5 = 795;

/// Levels below and above black are laid down in codes, not in percent: 16 of 10 bits down and up.
struct PlugeColumn {
    int end;
    int narrowCode;
    int fullCode;
};
constexpr std::array kPluge{PlugeColumn{376, 64, 0},  PlugeColumn{446, 48, 0}, PlugeColumn{514, 64, 0},
                            PlugeColumn{584, 80, 20}, PlugeColumn{652, 64, 0}, PlugeColumn{722, 99, 41},
                            PlugeColumn{960, 64, 0}};
constexpr int kPatchEnd = 1398;

/// Linear BT.709 in BT.2020 (BT.2087).
constexpr std::array k709To2020{Rgb{0.6274, 0.3293, 0.0433}, Rgb{0.0691, 0.9195, 0.0114},
                                Rgb{0.0164, 0.0880, 0.8956}};

/// Paints one picture: what the rows share.
class HdrBarsPainter {
public:
    explicit HdrBarsPainter(PictureCanvas& canvas)
        : m_canvas(canvas)
        , m_codes(canvas.codes())
        , m_edges(canvas)
        , m_isPq(canvas.format().transfer == TransferCurve::Pq)
        , m_isFullRange(canvas.codes().level(0.0) == 0)
        , m_white(m_isPq ? kPqWhite : kHlgWhite)
    {
    }

    void paint()
    {
        const int height = m_canvas.height();
        paintBars(0, m_edges.y(kRows[0]), 1.0);
        paintBars(m_edges.y(kRows[0]), m_edges.y(kRows[1]), m_white);
        paintStair(m_edges.y(kRows[1]), m_edges.y(kRows[2]));
        paintRamp(m_edges.y(kRows[2]), m_edges.y(kRows[3]));
        paintBottom(m_edges.y(kRows[3]), height);
    }

private:
    /// The published codes of R', G', B' are rounded, and their colour differences follow from the codes.
    Colour colourOfCodes(const Rgb& levels) const
    {
        Rgb rounded{};
        for (std::size_t i = 0; i < 3; ++i)
            rounded[i] = m_codes.levelOf(m_codes.level(levels[i]));
        return m_codes.colour(rounded);
    }

    void paintBars(int y0, int y1, double level)
    {
        std::vector<Column> columns{{m_edges.x(kLeftEnd), m_codes.grey(kSideGrey)}};
        for (std::size_t i = 0; i < kBarEnds.size(); ++i)
            columns.push_back({m_edges.x(kBarEnds[i]), colourOfCodes(scaled(kBarColours[i], level))});
        columns.push_back({m_canvas.width(), m_codes.grey(kSideGrey)});
        m_canvas.fillColumns(y0, y1, columns);
    }

    /// Below black, 0 to 100 % in steps of 10 %, above white.
    void paintStair(int y0, int y1)
    {
        std::vector<Column> columns{{m_edges.x(kLeftEnd), m_codes.grey(m_white)}};
        for (std::size_t i = 0; i < kStairEnds.size(); ++i) {
            const int tenths = static_cast<int>(i) - 1;
            const Colour step = tenths < 0 ? m_codes.greyCode(lowest())
                : tenths > 10              ? m_codes.greyCode(highest())
                                           : m_codes.grey(tenths / 10.0);
            columns.push_back({m_edges.x(kStairEnds[i]), step});
        }
        columns.push_back({m_canvas.width(), m_codes.grey(m_white)});
        m_canvas.fillColumns(y0, y1, columns);
    }

    void paintRamp(int y0, int y1)
    {
        const int at5 = m_isFullRange ? kFullRampAt5 : kNarrowRampAt5;
        m_canvas.fillLines(y0, y1, [&](int x) {
            const double tenBits = 5 + x * 1920.0 / m_canvas.width() - at5;
            const double code = std::floor(std::ldexp(tenBits, m_codes.bits() - 10));
            return m_codes.greyCode(
                static_cast<std::uint16_t>(std::clamp(code, double(lowest()), double(highest()))));
        });
    }

    void paintBottom(int y0, int y1)
    {
        std::vector<Column> columns;
        for (int i = 0; i < 3; ++i) // yellow, cyan, green
            columns.push_back({m_edges.x(kSmallBar * (i + 1)), colourOf709(kBarColours.at(1 + i))});
        for (const PlugeColumn& column : kPluge)
            columns.push_back({m_edges.x(column.end), pluge(column)});
        columns.push_back({m_edges.x(kPatchEnd), m_codes.grey(m_white)});
        columns.push_back({m_edges.x(kRightStart), m_codes.grey(0.0)});
        for (int i = 0; i < 3; ++i) // magenta, red, blue
            columns.push_back(
                {m_edges.x(kRightStart + kSmallBar * (i + 1)), colourOf709(kBarColours.at(4 + i))});
        m_canvas.fillColumns(y0, y1, columns);
    }

    /// A colour of BT.709 at the level of white, in the BT.2020 primaries of these bars: by scene light in
    /// HLG and by display light in PQ.
    Colour colourOf709(const Rgb& on) const
    {
        const double light =
            m_isPq ? TransferFunctions::pqToLight(m_white) : TransferFunctions::hlgToLight(m_white);
        Rgb levels{};
        for (std::size_t i = 0; i < 3; ++i) {
            const Rgb& row = k709To2020[i];
            const double mixed = light * (row[0] * on[0] + row[1] * on[1] + row[2] * on[2]);
            levels[i] = m_isPq ? TransferFunctions::lightToPq(mixed) : TransferFunctions::lightToHlg(mixed);
        }
        return colourOfCodes(levels);
    }

    Colour pluge(const PlugeColumn& column) const
    {
        return m_codes.greyCode(m_codes.fromTenBits(m_isFullRange ? column.fullCode : column.narrowCode));
    }

    std::uint16_t lowest() const { return m_isFullRange ? m_codes.level(0.0) : m_codes.lowest(); }
    std::uint16_t highest() const { return m_isFullRange ? m_codes.level(1.0) : m_codes.highest(); }

    PictureCanvas& m_canvas;
    const CodeValues& m_codes;
    const ScaledEdges m_edges;
    const bool m_isPq;
    const bool m_isFullRange;
    const double m_white;
};

} // namespace

void HdrBars::paint(PictureCanvas& canvas) const
{
    HdrBarsPainter(canvas).paint();
}

} // namespace Velmora::Server
