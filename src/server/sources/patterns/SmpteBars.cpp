#include "server/sources/patterns/SmpteBars.h"

#include "server/sources/patterns/BarColours.h"
#include "server/sources/patterns/ScaledEdges.h"

#include <array>

namespace Velmora::Server {

namespace {

// Ends of columns at 1920.
constexpr int kLeftEnd = 240;
constexpr std::array kBarEnds{445, 651, 857, 1063, 1269, 1475, 1680};
constexpr int kRightStart = 1680;
constexpr int kRampStart = 445;
constexpr int kRampEnd = 1475;

struct PlugeColumn {
    int end;
    double level;
};
constexpr std::array kPluge{
    PlugeColumn{240, 0.15},   PlugeColumn{549, 0.0},  PlugeColumn{960, 1.0},   PlugeColumn{1131, 0.0},
    PlugeColumn{1200, -0.02}, PlugeColumn{1268, 0.0}, PlugeColumn{1337, 0.02}, PlugeColumn{1405, 0.0},
    PlugeColumn{1474, 0.04},  PlugeColumn{1680, 0.0}, PlugeColumn{1920, 0.15},
};

constexpr double kSideGrey = 0.4;
constexpr double kBarLevel = 0.75;

void paintBars(PictureCanvas& canvas, const ScaledEdges& edges, int y0, int y1)
{
    const CodeValues& codes = canvas.codes();
    std::vector<Column> columns{{edges.x(kLeftEnd), codes.grey(kSideGrey)}};
    for (std::size_t i = 0; i < kBarEnds.size(); ++i)
        columns.push_back({edges.x(kBarEnds[i]), codes.colour(scaled(kBarColours[i], kBarLevel))});
    columns.push_back({canvas.width(), codes.grey(kSideGrey)});
    canvas.fillColumns(y0, y1, columns);
}

void paintCyanAndBlue(PictureCanvas& canvas, const ScaledEdges& edges, int y0, int y1)
{
    const CodeValues& codes = canvas.codes();
    const std::array columns{Column{edges.x(kLeftEnd), codes.colour({0, 1, 1})},
                             Column{edges.x(kRightStart), codes.grey(kBarLevel)},
                             Column{canvas.width(), codes.colour({0, 0, 1})}};
    canvas.fillColumns(y0, y1, columns);
}

/// The ramp reaches 0 and 100 % at its first and last pixel.
void paintRamp(PictureCanvas& canvas, const ScaledEdges& edges, int y0, int y1)
{
    const CodeValues& codes = canvas.codes();
    const std::array sides{
        Column{edges.x(kLeftEnd), codes.colour({1, 1, 0})}, Column{edges.x(kRampStart), codes.grey(0.0)},
        Column{edges.x(kRightStart), codes.grey(1.0)}, Column{canvas.width(), codes.colour({1, 0, 0})}};
    canvas.fillColumns(y0, y1, sides);
    const int first = edges.x(kRampStart);
    const int end = edges.x(kRampEnd);
    for (int x = first; x < end; ++x) {
        const double level = static_cast<double>(x - first) / (end - 1 - first);
        canvas.fillColumn(x, y0, y1, codes.grey(level));
    }
}

void paintPluge(PictureCanvas& canvas, const ScaledEdges& edges, int y0, int y1)
{
    std::vector<Column> columns;
    for (const PlugeColumn& column : kPluge)
        columns.push_back({edges.x(column.end), canvas.codes().grey(column.level)});
    canvas.fillColumns(y0, y1, columns);
}

} // namespace

void SmpteBars::paint(PictureCanvas& canvas) const
{
    const ScaledEdges edges(canvas);
    paintBars(canvas, edges, 0, edges.y(630));
    paintCyanAndBlue(canvas, edges, edges.y(630), edges.y(720));
    paintRamp(canvas, edges, edges.y(720), edges.y(810));
    paintPluge(canvas, edges, edges.y(810), canvas.height());
}

} // namespace Velmora::Server
