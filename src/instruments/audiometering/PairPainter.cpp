#include "instruments/audiometering/PairPainter.h"

#include "instruments/audiometering/MeterLook.h"
#include "instruments/audiometering/MeteringLayout.h"
#include "instruments/audiometering/PairState.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr auto kLeft = PairLayout::Left;
constexpr auto kRight = PairLayout::Right;
constexpr std::array kSides{kLeft, kRight};

/// Between the bars and the lines of their scales.
constexpr int kLineGap = 4;
/// For lines between the bars there has to be more room.
constexpr int kLeastMiddleScale = 12;
constexpr int kMonitoredLine = 3;
constexpr int kBoxMargin = 2;
constexpr int kSeparatorTop = 4;
constexpr int kTitleGap = 5; ///< between the titles of neighbours
constexpr int kMostTinyFigures = 2;
constexpr int kNameGap = 11; ///< between the names of the rows and the first pair

} // namespace

void PairPainter::paint(QPainter& painter, const QRegion& region) const
{
    const QSize size = m_layout.size;
    const QRect title(0, 0, size.width(), m_layout.titleBaseline + m_layout.fontPixels / 3);
    if (region.intersects(title))
        paintTitle(painter);
    if (m_layout.hasLabels() && region.intersects(QRect(0, 0, m_layout.fieldLeft + 1, m_layout.scale.top())))
        m_layout.fieldLeft > 0 ? paintRowNames(painter) : paintSeparator(painter);
    const QRect belowFigures(0, m_layout.scale.top() - m_layout.fontPixels, size.width(), size.height());
    if (region.intersects(belowFigures)) {
        paintScales(painter);
        paintInsteadOfBars(painter);
        paintAudioTypes(painter);
    }
    for (const Side side : kSides) {
        paintFigures(painter, side, region.boundingRect());
        if (m_state.isMetered(side) && region.intersects(litLamp(side)))
            paintLamp(painter, side);
    }
    if (m_state.isMetered(kLeft) && m_state.isMetered(kRight) && region.intersects(m_layout.phaseArea()))
        paintPhase(painter);
}

QRect PairPainter::litLamp(Side side) const
{
    return m_layout.litClipLamp(side, m_look.clipWordWidth);
}

/// As much of the title as there is room for: whole, close together, the first channel alone.
QString PairPainter::fittingTitle() const
{
    const QFontMetrics metrics(m_look.font);
    const QString whole = m_state.shownTitle();
    const int room = m_layout.pitch - kTitleGap;
    const auto fits = [&](const QString& text) { return metrics.horizontalAdvance(text) <= room; };
    if (m_layout.hasLabels() && fits(whole))
        return whole;
    if (whole != m_state.title)
        return metrics.elidedText(whole, Qt::ElideRight, room);
    const QString close = QString(whole).remove(QLatin1Char(' '));
    const QString first = whole.section(QLatin1Char(' '), 0, 0);
    if (m_layout.detail != PairLayout::Detail::Tiny)
        return m_layout.hasFullTitles && fits(close) ? close : first;
    // What distinguishes the links has no room.
    return first.right(kMostTinyFigures);
}

void PairPainter::paintTitle(QPainter& painter) const
{
    const bool isPresentAtAll = m_state.channel(kLeft).isPresent || m_state.channel(kRight).isPresent;
    painter.setFont(m_look.font);
    painter.setPen(isPresentAtAll ? m_look.text : m_look.disabledText);
    const QString text = fittingTitle();
    const QRect field = m_layout.field();
    const int half = m_layout.fontPixels;
    const auto paint = [&](const QString& line, int baseline) {
        painter.drawText(QRect(field.left(), baseline - 2 * half, field.width(),
                               2 * half + painter.fontMetrics().descent()),
                         Qt::AlignHCenter | Qt::AlignBottom, line);
    };
    if (m_layout.detail == PairLayout::Detail::Tiny && text.size() == 2) {
        paint(text.left(1), m_layout.titleBaseline - half + 1);
        paint(text.right(1), m_layout.titleBaseline);
    } else {
        paint(text, m_layout.titleBaseline);
    }
    for (const Side side : kSides) {
        const QRect bar = m_layout.bar(side);
        if (m_state.channel(side).isMonitored)
            painter.fillRect(bar.left(), m_layout.titleBaseline + 3, bar.width(), kMonitoredLine,
                             m_look.text);
    }
}

void PairPainter::paintScales(QPainter& painter) const
{
    const QRect field = m_layout.field();
    const QRect left = m_layout.bar(kLeft);
    const QRect right = m_layout.bar(kRight);
    const FixedScale& shown = m_layout.scale;
    const auto lines = [&](int from, int to) { shown.paintLines(painter, from, to - from, m_look.scale); };
    lines(field.left(), left.left() - kLineGap);
    if (m_layout.barGap >= kLeastMiddleScale + 2 * kLineGap)
        lines(left.right() + 1 + kLineGap, right.left() - kLineGap);
    lines(right.right() + 1 + kLineGap, field.right() + 1);
    const bool both = m_priority == ScaleDisplayPriority::LeftAndRight;
    if (both || m_priority == ScaleDisplayPriority::Left)
        shown.paintMargin(painter, FixedScale::Side::Left, field.left(), field.left(), m_look.scale);
    const int margin = m_layout.size.width() - field.right() - 1;
    if (both || m_priority == ScaleDisplayPriority::Right)
        shown.paintMargin(painter, FixedScale::Side::Right, field.right() + 1, margin, m_look.scale);
}

/// Between the figures of neighbours.
void PairPainter::paintSeparator(QPainter& painter) const
{
    const int bottom = m_layout.lampTop + m_layout.lampHeight;
    painter.fillRect(0, kSeparatorTop, 1, bottom - kSeparatorTop, m_look.line);
}

void PairPainter::paintRowNames(QPainter& painter) const
{
    painter.setFont(m_look.font);
    painter.setPen(m_look.secondaryText);
    const auto name = [&](int middle, const QString& words) {
        const int half = m_layout.fontPixels;
        painter.drawText(QRect(0, middle - half, m_layout.fieldLeft - kNameGap, 2 * half),
                         Qt::AlignRight | Qt::AlignVCenter, words);
    };
    const int aboveBaseline = m_layout.fontPixels * 2 / 5;
    if (m_layout.levelBaseline > 0)
        name(m_layout.levelBaseline - aboveBaseline, tr("Level"));
    if (m_layout.peakBaseline > 0)
        name(m_layout.peakBaseline - aboveBaseline, tr("Peak"));
    name(m_layout.phaseTop + m_layout.phaseHeight / 2, tr("Phase"));
    name(m_layout.lampTop + m_layout.lampHeight / 2, tr("Clip"));
}

/// What stands where there is nothing to meter.
void PairPainter::paintInsteadOfBars(QPainter& painter) const
{
    const PairState::Channel& left = m_state.channel(kLeft);
    const PairState::Channel& right = m_state.channel(kRight);
    const auto textOf = [](const PairState::Channel& each) {
        return each.isPresent ? each.content.dataText() : tr("Not present");
    };
    if (!m_state.isMetered(kLeft) && !m_state.isMetered(kRight) && left.isPresent == right.isPresent) {
        paintBox(painter, m_layout.bars(), textOf(left), left.isPresent);
        return;
    }
    for (const Side side : kSides) {
        if (!m_state.isMetered(side))
            paintBox(painter, m_layout.bar(side), textOf(m_state.channel(side)),
                     m_state.channel(side).isPresent);
    }
}

void PairPainter::paintBox(QPainter& painter, const QRect& box, const QString& text, bool isData) const
{
    painter.fillRect(box, isData ? m_look.dataFill : m_look.background);
    QPen pen(isData ? m_look.data : m_look.line);
    if (!isData)
        pen.setDashPattern({4, 4});
    painter.setPen(pen);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    if (box.width() < m_layout.fontPixels)
        return;
    painter.save();
    painter.setFont(m_look.font);
    painter.setPen(isData ? m_look.data : m_look.secondaryText);
    painter.translate(box.center());
    painter.rotate(-90);
    const int half = box.height() / 2 - kBoxMargin;
    const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, 2 * half);
    painter.drawText(QRect(-half, -box.width() / 2, 2 * half, box.width()), Qt::AlignCenter, shown);
    painter.restore();
}

void PairPainter::paintFigures(QPainter& painter, Side side, const QRect& dirty) const
{
    const PairState::Channel& shown = m_state.channel(side);
    if (side == kLeft && m_state.dolbyELine && m_layout.hasLabels()) {
        painter.setFont(m_look.font);
        painter.setPen(m_look.data);
        QString text = m_state.dolbyELineText();
        if (painter.fontMetrics().horizontalAdvance(text) > m_layout.pitch)
            text = text.section(QLatin1Char(' '), -1);
        painter.drawText(QRect(m_layout.fieldLeft, m_layout.levelBaseline - 2 * m_layout.fontPixels,
                               m_layout.pitch, 2 * m_layout.fontPixels + 4),
                         Qt::AlignHCenter | Qt::AlignBottom, text);
    }
    if (!m_state.isMetered(side))
        return;
    const auto paint = [&](const QRect& area, const QPoint& end, std::optional<int> number) {
        const bool isDim = m_state.isStale || !number;
        const MeterFigures& figures = isDim ? m_look.staleFigures
            : shown.isClipped               ? m_look.clippedFigures
                                            : m_look.figures;
        if (area.intersects(dirty))
            figures.draw(painter, end, number, m_decimals);
    };
    if (m_layout.levelBaseline > 0)
        paint(m_layout.levelArea(side), m_layout.levelEnd(side), shown.levelNumber);
    if (m_layout.peakBaseline > 0)
        paint(m_layout.peakArea(side), m_layout.peakEnd(side), shown.peakNumber);
}

void PairPainter::paintLamp(QPainter& painter, Side side) const
{
    if (m_state.channel(side).isClipped) {
        painter.drawPixmap(litLamp(side).topLeft(), m_look.clipLamp);
        return;
    }
    painter.setPen(m_look.line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_layout.clipLamp(side).adjusted(0, 0, -1, -1));
}

void PairPainter::paintPhase(QPainter& painter) const
{
    const QRect track = m_layout.phaseTrack();
    painter.fillRect(track, m_look.line);
    if (!m_state.shownPhase)
        return;
    const int middle = track.left() + track.width() / 2;
    const int marker = m_layout.phaseMarkerLeft(*m_state.shownPhase);
    const int value = marker + PairLayout::kPhaseMarkerWidth / 2;
    const QColor colour = m_state.isStale ? m_look.staleText
        : *m_state.shownPhase < 0         ? m_look.error
                                          : m_look.ok;
    painter.fillRect(std::min(middle, value), track.top(), std::abs(value - middle), track.height(), colour);
    const int top = track.top() - PairLayout::kPhaseOverhang;
    const int height = track.height() + 2 * PairLayout::kPhaseOverhang;
    painter.fillRect(middle - 1, top, 2, height, m_look.secondaryText);
    painter.fillRect(marker, top, PairLayout::kPhaseMarkerWidth, height,
                     m_state.isStale ? m_look.staleText : QColor(Qt::white));
}

void PairPainter::paintAudioTypes(QPainter& painter) const
{
    if (m_layout.typeBaseline == 0)
        return;
    const PairState::Channel& left = m_state.channel(kLeft);
    const PairState::Channel& right = m_state.channel(kRight);
    const auto textOf = [](const PairState::Channel& each) {
        return (each.isPresent ? each.content : PairState::Content{}).shortText();
    };
    painter.setFont(m_look.font);
    painter.setPen(m_look.secondaryText);
    const auto paint = [&](int fieldLeft, int width, const QString& text) {
        const int half = m_layout.fontPixels;
        painter.drawText(QRect(fieldLeft, m_layout.typeBaseline - 2 * half, width, 2 * half + 4),
                         Qt::AlignHCenter | Qt::AlignBottom,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, width - 2));
    };
    if (textOf(left) == textOf(right)) {
        paint(m_layout.fieldLeft, m_layout.pitch, textOf(left));
        return;
    }
    // Without the word length, for which there is no room.
    const auto shortOf = [&textOf](const PairState::Channel& each) {
        return textOf(each).section(QLatin1Char(' '), 0, 0);
    };
    paint(m_layout.fieldLeft, m_layout.pitch / 2, shortOf(left));
    paint(m_layout.fieldLeft + m_layout.pitch / 2, m_layout.pitch / 2, shortOf(right));
}
