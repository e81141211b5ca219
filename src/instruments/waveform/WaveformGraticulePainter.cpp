#include "instruments/waveform/WaveformGraticulePainter.h"

#include "gui/style/Fonts.h"
#include "instruments/waveform/WaveformColours.h"
#include "instruments/waveform/WaveformComponent.h"
#include "instruments/waveform/WaveformHorizontalScale.h"
#include "instruments/waveform/WaveformScalePainter.h"
#include "types/sdi/SdiUtility.h"

#include <QPainter>

#include <cmath>

using Velmora::WaveformTypes::Presentation;

namespace {

// EBU R 103: what may be there, in percent of narrow range.
constexpr double kLeastTolerated = -5.0;
constexpr double kMostTolerated = 105.0;

constexpr int kHeaderHeight = 26;
constexpr int kHeaderGap = 18;
constexpr int kNoteMargin = 6;

struct Dashes {
    int on;
    int off;
};

void drawDashed(QPainter& painter, int left, int right, int y, Dashes dashes, const QColor& colour)
{
    for (int x = left; x <= right; x += dashes.on + dashes.off)
        painter.fillRect(x, y, std::min(dashes.on, right + 1 - x), 1, colour);
}

struct TickLengths {
    int atLines;
    int atHalves;
    int others;
};

TickLengths tickLengths(WaveformDisplay::WaveformGeometry::Detail detail)
{
    switch (detail) {
    case WaveformDisplay::WaveformGeometry::Detail::Small:
        return {4, 4, 4};
    case WaveformDisplay::WaveformGeometry::Detail::Medium:
        return {6, 3, 3};
    case WaveformDisplay::WaveformGeometry::Detail::Full:
        break;
    }
    return {10, 8, 5};
}

bool contains(const std::vector<double>& levels, double level)
{
    return std::any_of(levels.begin(), levels.end(),
                       [level](double other) { return std::abs(other - level) < 1e-6; });
}

} // namespace

WaveformGraticulePainter::WaveformGraticulePainter(const WaveformDisplay& display, const WzPalette& palette,
                                                   QPoint picture)
    : m_display(display)
    , m_palette(palette)
    , m_picture(picture)
    , m_geometry(display.geometry())
{
}

QRect WaveformGraticulePainter::cellAt(int index) const
{
    return m_geometry.cells()[static_cast<std::size_t>(index)].translated(m_picture);
}

QPixmap WaveformGraticulePainter::render(QSize size, const HeldTrace& referenceTrace,
                                         qreal devicePixelRatio) const
{
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(colour(ColourRole::InstrumentBackground));
    QPainter painter(&pixmap);
    for (int i = 0; i < static_cast<int>(m_geometry.cells().size()); ++i)
        paintCell(painter, i);
    referenceTrace.paint(painter, m_display, m_picture);
    if (!m_geometry.cells().empty()) {
        paintInnerScale(painter);
        paintSignal(painter);
    }
    return pixmap;
}

void WaveformGraticulePainter::paintCell(QPainter& painter, int index) const
{
    const QRect cell = cellAt(index);
    const WaveformScale scale = m_display.scale(m_geometry, m_display.isColourDifferenceCell(index));
    painter.setClipRect(cell);
    paintVerticals(painter, cell);
    paintLevels(painter, cell, scale);
    if (!m_display.isColourDifferenceCell(index) && !m_display.signal.isFullRange)
        paintToleranceLimits(painter, cell, index == lastCellOfLevels());
    paintTicks(painter, cell, scale);
    paintLetters(painter, cell, index);
    paintNotes(painter, cell, index);
    painter.setClipping(false);
}

void WaveformGraticulePainter::paintVerticals(QPainter& painter, const QRect& cell) const
{
    const int top = y(cell, 100.0);
    const int bottom = y(cell, 0.0);
    for (const auto& mark : WaveformHorizontalScale::marks(m_display, m_geometry))
        painter.fillRect(cell.left() + mark.column, top, 1, bottom - top + 1,
                         colour(ColourRole::GraticuleMinor));
}

void WaveformGraticulePainter::paintLevels(QPainter& painter, const QRect& cell,
                                           const WaveformScale& scale) const
{
    for (const double level : scale.halves())
        drawDashed(painter, cell.left(), cell.right(), y(cell, level), {2, 6},
                   colour(ColourRole::GraticuleMinor));
    for (const double level : scale.lines())
        painter.fillRect(cell.left(), y(cell, level), cell.width(), 1, colour(ColourRole::GraticuleMinor));
    const bool isSmall = m_geometry.detail() == Detail::Small;
    const int half = isSmall ? 0 : 1;
    for (const double level : {0.0, 100.0})
        painter.fillRect(cell.left(), y(cell, level) - half, cell.width(), 2 * half + 1,
                         colour(ColourRole::GraticuleMajor));
    for (const double level : scale.limits())
        drawDashed(painter, cell.left(), cell.right(), y(cell, level), isSmall ? Dashes{3, 5} : Dashes{6, 6},
                   colour(ColourRole::GraticuleMajor));
}

/// What EBU R 103 tolerates lies between black or white and the limits of the codes: dotted finely, so that
/// they are not taken for one another.
void WaveformGraticulePainter::paintToleranceLimits(QPainter& painter, const QRect& cell, bool hasLabel) const
{
    for (const double level : {kLeastTolerated, kMostTolerated})
        drawDashed(painter, cell.left(), cell.right(), y(cell, level), {2, 2},
                   colour(ColourRole::GraticuleMinor));
    if (!hasLabel || m_display.isFullWidth || m_geometry.detail() == Detail::Small
        || m_display.presentation == Presentation::Stacked
        || m_display.innerScale() != WaveformDisplay::Scale::None)
        return;
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    painter.setPen(QColor(WaveformColours::kLimitLabel));
    const QString words = QStringLiteral("R 103");
    const int width = painter.fontMetrics().horizontalAdvance(words) + 8;
    const QRect place(cell.right() - width, y(cell, kMostTolerated) - 8, width, 17);
    painter.fillRect(place.adjusted(2, 0, -2, 0), colour(ColourRole::InstrumentBackground));
    painter.drawText(place, Qt::AlignCenter, words);
}

void WaveformGraticulePainter::paintTicks(QPainter& painter, const QRect& cell,
                                          const WaveformScale& scale) const
{
    const TickLengths lengths = tickLengths(m_geometry.detail());
    for (const double level : scale.ticks()) {
        const bool isLine = contains(scale.lines(), level);
        const int length = isLine             ? lengths.atLines
            : contains(scale.halves(), level) ? lengths.atHalves
                                              : lengths.others;
        const int row = y(cell, level);
        painter.fillRect(cell.left(), row, length, 1, colour(ColourRole::GraticuleMajor));
        painter.fillRect(cell.right() + 1 - length, row, length, 1, colour(ColourRole::GraticuleMajor));
    }
}

/// Where there is no scale below that has them in its middle.
void WaveformGraticulePainter::paintLetters(QPainter& painter, const QRect& cell, int index) const
{
    if (m_geometry.detail() != Detail::Small && m_display.presentation != Presentation::Stacked)
        return;
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels, true));
    const QFontMetrics metrics = painter.fontMetrics();
    QRect room = rowOfWords(cell, metrics.height());
    const auto components = m_display.componentsOf(index);
    for (auto component = components.rbegin(); component != components.rend(); ++component) {
        const QString letter = WaveformComponent::letterOf(*component);
        painter.setPen(colour(WaveformColours::roleOf(*component)));
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, letter);
        room.setRight(room.right() - metrics.horizontalAdvance(letter) - 6);
    }
}

/// Just above black, where there is room in all sizes.
void WaveformGraticulePainter::paintNotes(QPainter& painter, const QRect& cell, int index) const
{
    const QString notes = m_display.notesOf(index).join(QLatin1String("   "));
    if (notes.isEmpty())
        return;
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels));
    const QFontMetrics metrics = painter.fontMetrics();
    const QRect place(cell.left() + kNoteMargin, y(cell, 0.0) - kNoteMargin / 2 - metrics.height(),
                      cell.width() - 2 * kNoteMargin, metrics.height());
    painter.setPen(colour(ColourRole::Warning));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(notes, Qt::ElideRight, place.width()));
}

void WaveformGraticulePainter::paintInnerScale(QPainter& painter) const
{
    const auto kind = m_display.innerScale();
    const int cell = lastCellOfLevels();
    if (kind != WaveformDisplay::Scale::None && cell >= 0)
        WaveformScalePainter(painter, m_palette, m_display, m_geometry).paintInCell(kind, cellAt(cell));
}

int WaveformGraticulePainter::lastCellOfLevels() const
{
    int cell = static_cast<int>(m_geometry.cells().size()) - 1;
    while (cell >= 0 && m_display.isColourDifferenceCell(cell))
        --cell;
    return cell;
}

/// Above the line of white, or below it in a stack, which has no room there.
QRect WaveformGraticulePainter::rowOfWords(const QRect& cell, int height) const
{
    const bool isStack = m_display.presentation == Presentation::Stacked;
    const int white = y(cell, 100.0);
    const int top = isStack ? white + 3 : white - 2 - height;
    return {cell.left() + 6, std::max(cell.top(), top), cell.width() - 12, height};
}

void WaveformGraticulePainter::paintSignal(QPainter& painter) const
{
    const WaveformSignal& signal = m_display.signal;
    if (!signal.isPresent)
        return;
    if (m_picture.y() < kHeaderHeight || m_geometry.detail() != Detail::Full) {
        paintShortSignal(painter);
        return;
    }
    int x = m_picture.x();
    const auto paint = [&](const QString& text, bool bold, ColourRole role) {
        painter.setFont(Fonts::ofPixels(Fonts::kBodyPixels, bold));
        painter.setPen(colour(role));
        painter.drawText(x, m_picture.y() - 6, text);
        x += painter.fontMetrics().horizontalAdvance(text) + kHeaderGap;
    };
    paint(getHdrStandardString(signal.transferCurve, m_display.sLog3Mode), true, ColourRole::InstrumentText);
    paint(Velmora::Sdi::SdiUtility::convertColourimetryToString(signal.colourimetry), false,
          ColourRole::InstrumentSecondaryText);
    paint(signal.format, false, ColourRole::InstrumentSecondaryText);
    paint(signal.sampling, false, ColourRole::InstrumentSecondaryText);
    if (signal.transferCurve == WaveformSignal::TransferCurve::Hlg)
        paint(QStringLiteral("Lw 1000 cd/m\u00B2"), false, ColourRole::InstrumentSecondaryText);
}

/// Only what changes the scales: the name of a curve of high dynamic range.
void WaveformGraticulePainter::paintShortSignal(QPainter& painter) const
{
    if (!m_display.hasNitsScale())
        return;
    const QRect cell = cellAt(0);
    painter.setFont(Fonts::ofPixels(Fonts::kLabelPixels, true));
    painter.setPen(colour(ColourRole::InstrumentText));
    painter.drawText(rowOfWords(cell, painter.fontMetrics().height()), Qt::AlignLeft | Qt::AlignVCenter,
                     getHdrStandardString(m_display.signal.transferCurve, m_display.sLog3Mode));
}
