#include "server/sources/patterns/EbuBars.h"

#include "server/sources/patterns/BarColours.h"

namespace Velmora::Server {

EbuBars::EbuBars(double whiteLevel, double colourLevel)
    : m_whiteLevel(whiteLevel)
    , m_colourLevel(colourLevel)
{
}

void EbuBars::paint(PictureCanvas& canvas) const
{
    constexpr int kColumns = kBarColours.size() + 1; // with black
    std::vector<Column> columns;
    for (const Rgb& colour : kBarColours) {
        const double level = columns.empty() ? m_whiteLevel : m_colourLevel;
        const int end = canvas.width() * static_cast<int>(columns.size() + 1) / kColumns;
        columns.push_back({end, canvas.codes().colour(scaled(colour, level))});
    }
    columns.push_back({canvas.width(), canvas.codes().grey(0.0)});
    canvas.fillColumns(0, canvas.height(), columns);
}

} // namespace Velmora::Server
