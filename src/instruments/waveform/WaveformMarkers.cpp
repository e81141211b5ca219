#include "instruments/waveform/WaveformMarkers.h"

#include "gui/style/Fonts.h"
#include "instruments/waveform/WaveformColours.h"
#include "instruments/waveform/WaveformScalePainter.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

using Velmora::WaveformTypes::Presentation;

namespace {

constexpr int kLabelInset = 8;
constexpr int kLabelPadding = 8;
constexpr int kLabelAbove = 3;
constexpr int kLettersOfStack = 36; ///< at the right of each cell
constexpr int kDashOn = 14;
constexpr int kDashOff = 6;

QString tr(const char* words)
{
    return QCoreApplication::translate("WaveformMarkers", words);
}

} // namespace

WaveformMarkers::WaveformMarkers(const WaveformDisplay& display, const UserMarkers& userMarkers,
                                 QPoint picture)
    : m_display(display)
{
    const auto geometry = display.geometry();
    for (const QRect& cell : geometry.cells())
        m_cells.push_back(cell.translated(picture));
    m_fontPixels = WaveformScalePainter::fontPixels(geometry.detail());
    m_labelsAtLeft = geometry.detail() == WaveformDisplay::WaveformGeometry::Detail::Full
        || display.innerScale() != WaveformDisplay::Scale::None;
    addReferenceLevel();
    addPeakWhite();
    addUserMarkers(userMarkers);
}

QString WaveformMarkers::readingOf(double percent, bool colourDifference) const
{
    const QString level = m_display.scale(m_display.geometry(), colourDifference).readingOf(percent);
    if (colourDifference || !m_display.hasNitsScale())
        return level;
    return level + QLatin1String("  ") + QString::number(m_display.nitsScale().nits(percent), 'f', 0)
        + QLatin1String(" nits");
}

void WaveformMarkers::addUserMarkers(const UserMarkers& markers)
{
    for (std::size_t i = 0; i < 2; ++i) {
        for (const bool isCbCr : {false, true}) {
            const UserMarker& marker = (isCbCr ? markers.cbCr : markers.lumaRgb)[i];
            if (!marker.enabled)
                continue;
            m_levels.push_back(marker.percent);
            const bool isAmongOthers = isCbCr && m_display.presentation == Presentation::Overlay;
            const QString name =
                (isAmongOthers ? QStringLiteral("CbCr M") : QStringLiteral("M")) + QString::number(i + 1);
            add(marker.percent, isCbCr, marker.colour, Look::Solid,
                name + QLatin1String("  ") + readingOf(marker.percent, isCbCr), name);
        }
    }
}

void WaveformMarkers::addReferenceLevel()
{
    if (!m_display.hasReferenceMarker || !m_display.signal.isPresent)
        return;
    const double level = m_display.nitsScale().referencePercent();
    m_levels.push_back(level);
    // By its definition, not by the rounded level.
    const QString text =
        m_display.hasNitsScale() ? tr("Reference white  %1  203 nits") : tr("Reference level  %1");
    add(level, false, QColor(WaveformColours::kReferenceLevel), Look::Dashed,
        text.arg(m_display.scale(m_display.geometry(), false).readingOf(level)), tr("Ref"));
}

void WaveformMarkers::addPeakWhite()
{
    if (!m_display.peakWhiteNits || !m_display.hasNitsScale())
        return;
    const double nits = *m_display.peakWhiteNits;
    add(m_display.nitsScale().percent(nits), false, QColor(WaveformColours::kPeakWhite), Look::Dashed,
        tr("Peak white") + QLatin1String("  ") + QString::number(nits) + QLatin1String(" nits"), tr("Peak"));
}

void WaveformMarkers::add(double percent, bool colourDifference, const QColor& colour, Look look,
                          const QString& text, const QString& shortText)
{
    Line line{segmentsAt(percent, colourDifference), colour, look, text, {}};
    if (line.segments.empty())
        return;
    line.label = placeForLabel(line.segments.front(), text);
    if (line.label.isEmpty()) {
        line.text = shortText;
        line.label = placeForLabel(line.segments.front(), shortText);
    }
    m_lines.push_back(line);
}

/// In the cells that show such components, and over the gaps between two of them.
std::vector<QRect> WaveformMarkers::segmentsAt(double percent, bool colourDifference) const
{
    std::vector<QRect> segments;
    const auto geometry = m_display.geometry();
    const int row = geometry.row(percent);
    for (int i = 0; i < static_cast<int>(m_cells.size()); ++i) {
        const auto components = m_display.componentsOf(i);
        const QRect& cell = m_cells[static_cast<std::size_t>(i)];
        const bool isOfKind = std::any_of(components.begin(), components.end(), [&](auto component) {
            return Velmora::WaveformTypes::isColourDifference(component) == colourDifference;
        });
        if (!isOfKind || row < 0 || row >= cell.height())
            continue;
        const QRect segment(cell.left(), cell.top() + row, cell.width(), 1);
        const bool isNeighbour = !segments.empty() && segments.back().top() == segment.top()
            && segments.back().right() + cell.width() > segment.left();
        if (isNeighbour)
            segments.back().setRight(segment.right());
        else
            segments.push_back(segment);
    }
    return segments;
}

/// Above or below the line at one of its ends, where no other label is; empty when there is no such place.
QRect WaveformMarkers::placeForLabel(const QRect& line, const QString& text) const
{
    const QFontMetrics metrics(Fonts::ofPixels(m_fontPixels));
    const QSize size(metrics.horizontalAdvance(text) + 2 * kLabelPadding, m_fontPixels + 6);
    const int cellRight = line.left() + m_cells.front().width() - 1;
    if (size.width() + 2 * kLabelInset > m_cells.front().width())
        return {};
    const int left = line.left() + kLabelInset;
    const int letters = m_display.presentation == Presentation::Stacked ? kLettersOfStack : 0;
    const int right = cellRight - kLabelInset - letters - size.width() + 1;
    const int above = line.top() - kLabelAbove - size.height() + 1;
    const int below = line.bottom() + kLabelAbove;
    std::vector<QRect> places;
    for (const int x : {m_labelsAtLeft ? left : right, m_labelsAtLeft ? right : left}) {
        for (const int y : {above, below})
            places.emplace_back(QPoint(x, y), size);
    }
    const auto free = std::find_if(places.begin(), places.end(), [this](const QRect& place) {
        const bool isVisible = place.top() >= 0;
        return isVisible && std::none_of(m_lines.begin(), m_lines.end(), [&place](const Line& other) {
                   return other.label.intersects(place);
               });
    });
    return free == places.end() ? QRect() : *free;
}

void WaveformMarkers::paint(QPainter& painter) const
{
    painter.setFont(Fonts::ofPixels(m_fontPixels));
    for (const Line& line : m_lines) {
        QColor glow = line.colour;
        glow.setAlphaF(0.4);
        for (const QRect& segment : line.segments) {
            if (line.look == Look::Solid)
                painter.fillRect(segment.adjusted(0, -1, 0, 1), glow);
            const int step = line.look == Look::Solid ? segment.width() : kDashOn + kDashOff;
            for (int x = segment.left(); x <= segment.right(); x += step) {
                const int length = line.look == Look::Solid ? step : kDashOn;
                painter.fillRect(x, segment.top(), std::min(length, segment.right() + 1 - x), 1, line.colour);
            }
        }
    }
    for (const Line& line : m_lines) {
        if (line.label.isEmpty())
            continue;
        painter.fillRect(line.label, QColor::fromRgba(WaveformColours::kLabelBackground));
        painter.setPen(line.colour);
        painter.drawText(line.label, Qt::AlignCenter, line.text);
    }
}
