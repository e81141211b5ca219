#include "instruments/audiolevels/MeterLayout.h"

#include <algorithm>
#include <cmath>

namespace {

using Detail = MeterLayout::Detail;

constexpr QSize kNormalFrom(720, 400);
constexpr QSize kLargeFrom(1600, 900);
/// Between the bars of neighbouring pairs, at least.
constexpr int kLeastPairGap = 8;

bool isAtLeast(const QSize& size, const QSize& limit)
{
    return size.width() >= limit.width() && size.height() >= limit.height();
}

Detail detailFor(const QSize& content)
{
    if (isAtLeast(content, kLargeFrom))
        return Detail::Large;
    return isAtLeast(content, kNormalFrom) ? Detail::Normal : Detail::Narrow;
}

/// What the detail alone decides.
struct Measures {
    int left, right, foot;
    int barWidth, barGap;
    int titleBaseline, levelBaseline;
    int phaseTop, phaseHeight;
    int lampTop, lampHeight;
    int scaleTop, fontPixels;
};

constexpr Measures measuresOf(Detail detail)
{
    switch (detail) {
    case Detail::Narrow:
        return {46, 14, 8, 18, 4, 21, 0, 32, 6, 46, 14, 72, 15};
    case Detail::Normal:
        return {62, 62, 24, 30, 6, 19, 43, 56, 6, 73, 18, 104, 15};
    case Detail::Large:
        break;
    }
    return {86, 86, 64, 66, 12, 27, 60, 78, 10, 102, 24, 142, 20};
}

} // namespace

MeterLayout MeterLayout::forSize(const QSize& content)
{
    MeterLayout layout;
    layout.detail = detailFor(content);
    const Measures measures = measuresOf(layout.detail);
    layout.scale.top = measures.scaleTop;
    layout.scale.fontPixels = measures.fontPixels;
    layout.scale.pixelsPerDb =
        std::max(1, (content.height() - measures.scaleTop - measures.foot) / -MeterScale::kLowestDb);
    layout.left = measures.left;
    layout.pitch = std::max(kLeastPairGap, (content.width() - measures.left - measures.right) / kPairs);
    layout.barGap = measures.barGap;
    const int room = (layout.pitch - measures.barGap - kLeastPairGap) / 2;
    layout.barWidth = std::clamp(room, 1, measures.barWidth);
    layout.titleBaseline = measures.titleBaseline;
    layout.levelBaseline = measures.levelBaseline;
    layout.phaseTop = measures.phaseTop;
    layout.phaseHeight = measures.phaseHeight;
    layout.lampTop = measures.lampTop;
    layout.lampHeight = measures.lampHeight;
    return layout;
}

QRect MeterLayout::cell(int pair) const
{
    return {left + pair * pitch, 0, pitch, scale.bottom()};
}

QRect MeterLayout::bar(int channel) const
{
    const int pairWidth = 2 * barWidth + barGap;
    const int pairLeft = cell(channel / 2).left() + (pitch - pairWidth) / 2;
    return {pairLeft + channel % 2 * (barWidth + barGap), scale.top, barWidth, scale.height()};
}

QRect MeterLayout::clipLamp(int channel) const
{
    const QRect column = bar(channel);
    return {column.left(), lampTop, column.width(), lampHeight};
}

QRect MeterLayout::litClipLamp(int channel, int wordWidth) const
{
    QRect lamp = clipLamp(channel);
    if (detail == Detail::Narrow)
        return lamp;
    // The words of both channels of a pair stand beside each other, and reach outwards.
    const int missing = std::max(0, wordWidth - lamp.width());
    const int inwards = std::min(missing, std::max(0, barGap / 2 - 1));
    const int outwards = missing - inwards;
    const bool isLeft = channel % 2 == 0;
    return lamp.adjusted(isLeft ? -outwards : -inwards, -1, isLeft ? inwards : outwards, 1);
}

int MeterLayout::levelRight(int channel) const
{
    if (detail == Detail::Large)
        return bar(channel).right() + 1;
    // A bar is narrower than its read-out.
    return cell(channel / 2).left() + (channel % 2 + 1) * pitch / 2 - 3;
}

QRect MeterLayout::levelArea(int channel) const
{
    const int right = levelRight(channel);
    const int height = scale.fontPixels + 4;
    const int width = (detail == Detail::Large ? barWidth + barGap : pitch / 2) - 4;
    return {right - width, levelBaseline - scale.fontPixels, width, height};
}

QRect MeterLayout::phaseTrack(int pair) const
{
    const QRect first = bar(2 * pair);
    return {first.left(), phaseTop, 2 * barWidth + barGap, phaseHeight};
}

QRect MeterLayout::phaseArea(int pair) const
{
    return phaseTrack(pair).adjusted(-kPhaseMarkerWidth / 2, -kPhaseOverhang, kPhaseMarkerWidth / 2,
                                     kPhaseOverhang);
}

int MeterLayout::phaseMarkerLeft(int pair, float phase) const
{
    const QRect track = phaseTrack(pair);
    const float half = static_cast<float>(track.width()) / 2.0F;
    const float middle = static_cast<float>(track.left()) + half + std::clamp(phase, -1.0F, 1.0F) * half;
    return static_cast<int>(std::lround(middle)) - kPhaseMarkerWidth / 2;
}

MeterLayout::Bar MeterLayout::barFor(float levelDb, float hatDb) const
{
    const int hat = scale.rowOf(hatDb);
    return {scale.rowOf(levelDb),
            hat == scale.bottom() ? hat : std::clamp(hat - 1, scale.top, scale.bottom() - kHatHeight)};
}

QRect MeterLayout::hat(int channel, const Bar& shown) const
{
    const QRect column = bar(channel);
    return QRect(column.left(), shown.hatRow, column.width(), kHatHeight) & column;
}

QRect MeterLayout::changed(int channel, const Bar& from, const Bar& to) const
{
    if (from == to)
        return {};
    const QRect column = bar(channel);
    const QRect rows(column.left(), std::min(from.row, to.row), column.width(), std::abs(from.row - to.row));
    if (from.hatRow == to.hatRow)
        return rows;
    return rows | hat(channel, from) | hat(channel, to);
}

int MeterLayout::channelAt(const QPoint& point) const
{
    if (pitch <= 0 || point.x() < left || point.x() >= right())
        return -1;
    return (point.x() - left) * 2 / pitch;
}
