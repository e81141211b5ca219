#include "types/waveform/WaveformGeometry.h"

#include <algorithm>
#include <cmath>

namespace Velmora::WaveformTypes {

namespace {

constexpr int kStackGap = 6;

struct Margins {
    int sides; ///< for the labels at the left and at the right
    int gap; ///< between the cells of a parade
    int below; ///< for the labels below, where the height allows
};

Margins marginsFor(WaveformGeometry::Detail detail)
{
    switch (detail) {
    case WaveformGeometry::Detail::Small:
        break;
    case WaveformGeometry::Detail::Medium:
        return {56, 16, 25};
    case WaveformGeometry::Detail::Full:
        return {96, 24, 63};
    }
    return {44, 16, 0};
}

WaveformGeometry::Detail detailFor(QSize content)
{
    // A window of 1920 x 1080 or 960 x 540 without its title line.
    if (content.width() >= 1920 && content.height() >= 1050)
        return WaveformGeometry::Detail::Full;
    if (content.width() >= 960 && content.height() >= 510)
        return WaveformGeometry::Detail::Medium;
    return WaveformGeometry::Detail::Small;
}

int rowsAboveZero(int pixelsPerTenPercent)
{
    return static_cast<int>(std::floor(WaveformGeometry::kHighestPercent * pixelsPerTenPercent / 10.0));
}

int rowsBelowZero(int pixelsPerTenPercent)
{
    return static_cast<int>(std::floor(-WaveformGeometry::kLowestPercent * pixelsPerTenPercent / 10.0));
}

int rowCount(int pixelsPerTenPercent)
{
    return rowsAboveZero(pixelsPerTenPercent) + 1 + rowsBelowZero(pixelsPerTenPercent);
}

/// The largest scale whose rows fit into @p height, in steps of @p step pixels per ten percent; 0: none.
int scaleFor(int height, int step)
{
    const int span = static_cast<int>(WaveformGeometry::kHighestPercent - WaveformGeometry::kLowestPercent);
    return std::max(0, (height - 1) * 10 / (span * step) * step);
}

} // namespace

WaveformGeometry::WaveformGeometry(QSize content, Presentation presentation, int channels, bool fullWidth,
                                   const WaveformView& view)
    : m_view(view)
    , m_detail(detailFor(content))
{
    m_view.horizontalMagnification = std::max(1.0, m_view.horizontalMagnification);
    m_view.verticalMagnification = std::max(0.01, m_view.verticalMagnification);
    m_view.horizontalPosition = std::clamp(m_view.horizontalPosition, 0.0, 1.0);
    placeCells(content, presentation, std::max(1, channels), fullWidth);
}

void WaveformGeometry::placeCells(QSize content, Presentation presentation, int channels, bool fullWidth)
{
    const Margins margins = marginsFor(m_detail);
    const int sides = fullWidth ? 0 : margins.sides;
    m_pixelsPerTenPercent = scaleFor(content.height(), 10);
    const int areaRows = rowCount(m_pixelsPerTenPercent);
    const int columns = presentation == Presentation::Parade ? channels : 1;
    const int stacked = presentation == Presentation::Stacked ? channels : 1;
    if (stacked > 1)
        m_pixelsPerTenPercent = scaleFor((areaRows - (stacked - 1) * kStackGap) / stacked, 1);
    const int width = (content.width() - 2 * sides - (columns - 1) * margins.gap) / columns;
    if (m_pixelsPerTenPercent <= 0 || width <= 0)
        return;

    const int height = rowCount(m_pixelsPerTenPercent);
    m_rowOfFiftyPercent = rowsAboveZero(m_pixelsPerTenPercent) - 5 * m_pixelsPerTenPercent;
    for (int i = 0; i < columns * stacked; ++i) {
        const int x = columns > 1 ? i * (width + margins.gap) : 0;
        const int y = stacked > 1 ? i * (height + kStackGap) : 0;
        m_cells.emplace_back(x, y, width, height);
    }
    const int spare = content.height() - areaRows;
    const int top = spare - std::min(margins.below, spare);
    m_imageRect = QRect(QPoint(0, 0), m_cells.back().bottomRight()).translated(sides, top);
}

double WaveformGeometry::rowPosition(double percent) const
{
    return m_rowOfFiftyPercent
        - (percent - 50.0 - m_view.verticalPosition) * m_view.verticalMagnification * pixelsPerPercent();
}

int WaveformGeometry::row(double percent) const
{
    constexpr double kFarOut = 1e6;
    return static_cast<int>(std::floor(std::clamp(rowPosition(percent), -kFarOut, kFarOut) + 0.5));
}

double WaveformGeometry::percent(int row) const
{
    return 50.0 + m_view.verticalPosition
        + (m_rowOfFiftyPercent - row) / (m_view.verticalMagnification * pixelsPerPercent());
}

double WaveformGeometry::linePosition(int column) const
{
    const double shown = 1.0 / m_view.horizontalMagnification;
    const double start = m_view.horizontalPosition * (1.0 - shown);
    return start + shown * column / m_cells.front().width();
}

int WaveformGeometry::column(double linePosition) const
{
    const double shown = 1.0 / m_view.horizontalMagnification;
    const double start = m_view.horizontalPosition * (1.0 - shown);
    return static_cast<int>(std::floor((linePosition - start) / shown * m_cells.front().width()));
}

} // namespace Velmora::WaveformTypes
