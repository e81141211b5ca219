#include "instruments/waveform/WaveformScalePainter.h"

#include "gui/style/Fonts.h"
#include "instruments/waveform/WaveformColours.h"

#include <QPainter>

using Detail = WaveformDisplay::WaveformGeometry::Detail;

namespace {

constexpr int kInnerTick = 10;

int tickLength(Detail detail)
{
    return detail == Detail::Small ? 4 : detail == Detail::Medium ? 6 : 10;
}

/// Of what stands at the foot, above the lower edge.
int footBaseline(Detail detail)
{
    return detail == Detail::Full ? 33 : 6;
}

/// Between labels and the edge of the window at the right, or the picture at the left.
int labelGap(Detail detail)
{
    switch (detail) {
    case Detail::Small:
        return 6;
    case Detail::Medium:
        return 8;
    case Detail::Full:
        break;
    }
    return 14;
}

} // namespace

WaveformScalePainter::WaveformScalePainter(QPainter& painter, const WzPalette& palette,
                                           const WaveformDisplay& display,
                                           const WaveformDisplay::WaveformGeometry& geometry)
    : m_painter(painter)
    , m_palette(palette)
    , m_display(display)
    , m_geometry(geometry)
{
}

int WaveformScalePainter::fontPixels(Detail detail)
{
    return detail == Detail::Full ? Fonts::kBodyPixels : Fonts::kLabelPixels;
}

bool WaveformScalePainter::isInView(int row) const
{
    return row >= 0 && row < m_geometry.cells().front().height();
}

void WaveformScalePainter::paintMargin(Side side, const QRect& margin, int pictureTop) const
{
    const bool isStack = m_display.presentation == Velmora::WaveformTypes::Presentation::Stacked;
    const int cells = isStack ? static_cast<int>(m_geometry.cells().size()) : 1;
    const int gap = labelGap(m_geometry.detail());
    for (int cell = 0; cell < cells && !m_geometry.cells().empty(); ++cell) {
        const Scale scale = side == Side::Left ? m_display.leftScale(cell) : m_display.rightScale(cell);
        const int top = pictureTop + m_geometry.cells()[static_cast<std::size_t>(cell)].top();
        if (scale == Scale::Nits && !m_display.isFullWidth)
            paintNitsTicks(side, margin, top);
        paintLabels(scale, margin.adjusted(0, 0, -gap, 0), top);
        if (m_geometry.detail() != Detail::Small && cell == cells - 1 && !m_display.isFullWidth)
            paintUnit(scale, margin.adjusted(0, 0, -gap, 0));
    }
}

void WaveformScalePainter::paintInCell(Scale scale, const QRect& cell) const
{
    const int width = QFontMetrics(Fonts::ofPixels(fontPixels(m_geometry.detail())))
                          .horizontalAdvance(QStringLiteral("10000 "));
    paintLabels(scale, QRect(cell.right() - width - kInnerTick, cell.top(), width, cell.height()), cell.top(),
                true);
}

void WaveformScalePainter::paintLabels(Scale scale, const QRect& place, int cellTop, bool isOverPicture) const
{
    const int pixels = fontPixels(m_geometry.detail());
    for (const WaveformScale::Label& label : m_display.labelsOf(scale, m_geometry)) {
        const int row = m_geometry.row(label.percent);
        if (!isInView(row))
            continue;
        m_painter.setFont(Fonts::ofPixels(pixels, label.isBold));
        m_painter.setPen(label.isLimit ? QColor(WaveformColours::kLimitLabel)
                                       : m_palette.colour(ColourRole::GraticuleLabel));
        const QRect line(place.left(), cellTop + row - pixels, place.width(), 2 * pixels + 1);
        const auto alignment = Qt::AlignRight | Qt::AlignVCenter;
        if (isOverPicture)
            m_painter.fillRect(m_painter.boundingRect(line, alignment, label.text).adjusted(-3, 0, 3, 0),
                               m_palette.colour(ColourRole::InstrumentBackground));
        m_painter.drawText(line, alignment, label.text);
    }
}

void WaveformScalePainter::paintNitsTicks(Side side, const QRect& margin, int cellTop) const
{
    const QColor colour = m_palette.colour(ColourRole::GraticuleMajor);
    const int length = tickLength(m_geometry.detail());
    const int left = side == Side::Right ? margin.left() : margin.right() + 1 - length;
    for (const WaveformScale::Label& label : m_display.labelsOf(Scale::Nits, m_geometry)) {
        const int row = m_geometry.row(label.percent);
        if (!isInView(row))
            continue;
        // Black and peak go on where the lines of the graticule end.
        const bool isEnd = label.isBold && (row == m_geometry.row(0.0) || row == m_geometry.row(100.0));
        const int half = isEnd && m_geometry.detail() != Detail::Small ? 1 : 0;
        m_painter.fillRect(left, cellTop + row - half, length, 2 * half + 1, colour);
    }
}

QString WaveformScalePainter::unitOf(Scale scale) const
{
    if (scale == Scale::Nits)
        return QStringLiteral("nits");
    return m_display.scale(m_geometry, scale == Scale::ColourDifference).unitText();
}

/// At the foot, beside the labels of the line.
void WaveformScalePainter::paintUnit(Scale scale, const QRect& place) const
{
    m_painter.setFont(Fonts::ofPixels(fontPixels(m_geometry.detail())));
    m_painter.setPen(m_palette.colour(ColourRole::GraticuleLabel));
    const QString unit = unitOf(scale);
    const int left = place.right() + 1 - m_painter.fontMetrics().horizontalAdvance(unit);
    m_painter.drawText(left, place.bottom() + 1 - footBaseline(m_geometry.detail()), unit);
}
