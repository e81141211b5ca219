#include "instruments/audiometering/FixedScale.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kTickSpacing = 12;
constexpr int kTickGap = 2; ///< between ticks and the field of the bars
constexpr int kMajorTick = 8;
constexpr int kMinorTick = 4;
constexpr int kLabelGap = 3;
constexpr int kEdgeGap = 12; ///< between labels at the right and the edge of the window
/// Below this height ticks are short and lines faint.
constexpr int kDenseBelow = 200;

/// Rows that a label takes with the space around it.
int labelRoom(const FixedScale::Look& look)
{
    return look.font.pixelSize() * 12 / 5;
}

} // namespace

FixedScale::FixedScale(const MeterScale& scale, int top, int pixelsPerStep)
    : m_scale(&scale)
    , m_top(top)
    , m_height(scale.stepCount() * pixelsPerStep)
    , m_pixelsPerUnit(pixelsPerStep / scale.step())
    , m_showsMinorTicks(scale.minorInterval * m_pixelsPerUnit >= kTickSpacing)
    , m_isDense(m_height < kDenseBelow)
{
}

int FixedScale::rowOf(double reading) const
{
    if (!m_scale || !(reading > m_scale->lower))
        return bottom();
    const double below = (m_scale->upper - std::min(reading, m_scale->upper)) * m_pixelsPerUnit;
    return m_top + static_cast<int>(std::lround(below));
}

std::vector<double> FixedScale::labelledTicks(int labelPixels) const
{
    std::vector<double> labelled;
    if (!m_scale)
        return labelled;
    const double spacing = m_scale->majorInterval * m_pixelsPerUnit;
    const int every = std::max(1, static_cast<int>(std::ceil(labelPixels / spacing)));
    for (const double tick : m_scale->majorTicks()) {
        const auto fromReference = std::lround((tick - m_scale->reference) / m_scale->majorInterval);
        if (fromReference % every == 0)
            labelled.push_back(tick);
    }
    return labelled;
}

bool FixedScale::isThreshold(double reading) const
{
    return reading == m_scale->amberFrom || reading == m_scale->redFrom;
}

void FixedScale::paintLines(QPainter& painter, int left, int width, const Look& look) const
{
    for (const double tick : labelledTicks(labelRoom(look))) {
        const bool isMajor = isThreshold(tick) && !m_isDense;
        painter.fillRect(left, rowOf(tick), width, 1, isMajor ? look.majorLine : look.line);
    }
}

void FixedScale::paintTicks(QPainter& painter, Side side, int edge, const Look& look) const
{
    const auto paint = [&](double tick, int length) {
        const int left = side == Side::Left ? edge - kTickGap - length : edge + kTickGap;
        painter.fillRect(left, rowOf(tick), length, 1, look.majorLine);
    };
    for (const double tick : m_scale->majorTicks())
        paint(tick, m_isDense ? kMinorTick : kMajorTick);
    if (!m_showsMinorTicks)
        return;
    for (const double tick : m_scale->minorTicks())
        paint(tick, kMinorTick);
}

void FixedScale::paintMargin(QPainter& painter, Side side, int edge, int width, const Look& look) const
{
    if (!m_scale)
        return;
    paintTicks(painter, side, edge, look);
    const int ticks = kTickGap + (m_isDense ? kMinorTick : kMajorTick) + kLabelGap;
    painter.setPen(look.label);
    for (const double tick : labelledTicks(labelRoom(look))) {
        const bool isBold = tick == m_scale->upper || isThreshold(tick);
        painter.setFont(isBold ? look.boldFont : look.font);
        const int half = look.font.pixelSize();
        const QRect row = side == Side::Left
            ? QRect(edge - width, rowOf(tick) - half, width - ticks, 2 * half)
            : QRect(edge + ticks, rowOf(tick) - half, width - ticks - kEdgeGap, 2 * half);
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, m_scale->label(tick));
    }
}
