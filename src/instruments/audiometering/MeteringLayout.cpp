#include "instruments/audiometering/MeteringLayout.h"

#include <algorithm>
#include <cmath>

namespace {

using Detail = PairLayout::Detail;

constexpr int kTinyBelow = 20;
/// For which two read-outs stand beside each other.
constexpr int kNormalPitch = 96;
constexpr int kNormalHeight = 400;
constexpr int kLargePitch = 180;
constexpr int kLargeHeight = 900;
/// Room for one read-out, or for the title of two channels.
constexpr int kMediumPitch = 44;
/// Rows are not made lower than the contents of the two smaller windows.
constexpr int kWholeRow = 500;
constexpr int kLeastRow = 230;
/// Up to so many pairs in a row have bars of up to twice the width, with the middle scale between them.
constexpr int kFewPairs = 4;
constexpr int kButtonGap = 4;
/// What buttons have to leave of the bars.
constexpr int kLeastBar = 100;

/// What the detail alone decides.
struct Measures {
    int left, right, foot;
    int barWidth, barGap, pairGap;
    int titleBaseline, levelBaseline, peakBaseline;
    int phaseTop, phaseHeight;
    int lampTop, lampHeight;
    int scaleTop, typeBelow, fontPixels;
};

constexpr Measures measuresOf(Detail detail)
{
    switch (detail) {
    case Detail::Tiny:
        return {46, 4, 8, 18, 1, 3, 28, 0, 0, 33, 5, 46, 14, 72, 0, 15};
    case Detail::Narrow:
        return {46, 14, 8, 18, 4, 8, 21, 0, 0, 32, 6, 46, 14, 72, 0, 15};
    case Detail::Medium:
        return {62, 62, 24, 18, 4, 8, 19, 61, 0, 74, 6, 91, 18, 122, 0, 15};
    case Detail::Normal:
        return {62, 62, 24, 30, 6, 8, 19, 43, 63, 76, 6, 93, 18, 124, 18, 15};
    case Detail::Large:
        break;
    }
    return {86, 86, 32, 66, 12, 8, 27, 60, 86, 104, 10, 128, 24, 168, 24, 20};
}

Detail detailFor(int pitch, int height)
{
    if (pitch >= kLargePitch && height >= kLargeHeight)
        return Detail::Large;
    if (pitch >= kNormalPitch && height >= kNormalHeight)
        return Detail::Normal;
    if (pitch >= kMediumPitch && height >= kNormalHeight)
        return Detail::Medium;
    return pitch >= kTinyBelow ? Detail::Narrow : Detail::Tiny;
}

int pitchFor(int width, int pairs, int rows)
{
    const int columns = (pairs + rows - 1) / rows;
    const Measures widest = measuresOf(width >= 700 ? Detail::Normal : Detail::Narrow);
    return (width - widest.left - widest.right) / columns;
}

int rowsFor(const QSize& content, int pairs)
{
    int rows = 1;
    while (pitchFor(content.width(), pairs, rows) < kNormalPitch
           && content.height() / (2 * rows) >= kWholeRow)
        rows *= 2;
    while (pitchFor(content.width(), pairs, rows) < kMediumPitch
           && content.height() / (2 * rows) >= kLeastRow)
        rows *= 2;
    return rows;
}

void setBars(PairLayout& pair, const Measures& measures, int columns)
{
    const bool isFew = columns <= kFewPairs;
    pair.barGap = isFew ? 3 * measures.barGap : pair.pitch < kMediumPitch ? 2 : measures.barGap;
    if (pair.detail == Detail::Tiny)
        pair.barGap = measures.barGap;
    const int pairGap = pair.pitch < kMediumPitch ? std::min(measures.pairGap, 6) : measures.pairGap;
    const int room = (pair.pitch - pair.barGap - pairGap) / 2;
    pair.barWidth = std::clamp(room, 1, isFew ? 2 * measures.barWidth : measures.barWidth);
}

void setRows(PairLayout& pair, const Measures& measures)
{
    pair.titleBaseline = measures.titleBaseline;
    pair.levelBaseline = measures.levelBaseline;
    pair.peakBaseline = measures.peakBaseline;
    pair.phaseTop = measures.phaseTop;
    pair.phaseHeight = measures.phaseHeight;
    pair.lampTop = measures.lampTop;
    pair.lampHeight = measures.lampHeight;
    pair.fontPixels = measures.fontPixels;
    pair.buttonsTop = measures.scaleTop - kButtonGap;
    pair.hasFullTitles = pair.pitch >= kMediumPitch;
}

void setScale(PairLayout& pair, const Measures& measures, const MeterScale& scale, int buttonRows)
{
    const int room = pair.size.height() - measures.scaleTop - measures.foot;
    const int buttons = buttonRows * MeteringLayout::kButtonHeight;
    pair.hasButtons = buttonRows > 0 && pair.pitch >= kNormalPitch && room - buttons >= kLeastBar;
    const int above = pair.hasButtons ? buttons : 0;
    pair.scale =
        FixedScale(scale, measures.scaleTop + above, std::max(1, (room - above) / scale.stepCount()));
    if (measures.typeBelow > 0)
        pair.typeBaseline = pair.scale.bottom() + measures.typeBelow;
    // A low window has no row for the levels above the bars, but may have room below them.
    const int below = pair.scale.bottom() + measures.fontPixels + 4;
    if (pair.detail == Detail::Narrow && pair.pitch >= kNormalPitch && below + 4 <= pair.size.height())
        pair.levelBaseline = below;
}

} // namespace

QRect PairLayout::bar(Side side) const
{
    const int pairWidth = 2 * barWidth + barGap;
    const int pairLeft = fieldLeft + (pitch - pairWidth) / 2;
    return {pairLeft + (side == Right ? barWidth + barGap : 0), scale.top(), barWidth, scale.height()};
}

QRect PairLayout::clipLamp(Side side) const
{
    const QRect column = bar(side);
    return {column.left(), lampTop, column.width(), lampHeight};
}

QRect PairLayout::litClipLamp(Side side, int wordWidth) const
{
    const QRect lamp = clipLamp(side);
    if (detail != Detail::Normal && detail != Detail::Large)
        return lamp;
    // The words of both channels of a pair stand beside each other, and reach outwards.
    const int missing = std::max(0, wordWidth - lamp.width());
    const int inwards = std::min(missing, std::max(0, barGap / 2 - 1));
    const int outwards = std::min(missing - inwards, std::max(0, bar(Left).left() - fieldLeft - 1));
    const bool isLeft = side == Left;
    return lamp.adjusted(isLeft ? -outwards : -inwards, -1, isLeft ? inwards : outwards, 1);
}

int PairLayout::figureRight(Side side) const
{
    if (detail == Detail::Medium)
        return fieldLeft + pitch - 3;
    if (hasWideBars())
        return bar(side).right() + 1;
    // A bar is narrower than its read-out.
    return fieldLeft + (side == Right ? pitch : pitch / 2) - 3;
}

QPoint PairLayout::levelEnd(Side side) const
{
    const bool isUpper = detail == Detail::Medium && side == Left;
    return {figureRight(side), levelBaseline - (isUpper ? fontPixels + 3 : 0)};
}

QPoint PairLayout::peakEnd(Side side) const
{
    return {figureRight(side), peakBaseline};
}

QRect PairLayout::figureArea(const QPoint& end) const
{
    const int width = detail == Detail::Medium ? pitch - 4
        : hasWideBars()                        ? barWidth + barGap - 4
                                               : pitch / 2 - 4;
    return {end.x() - width, end.y() - fontPixels, width, fontPixels + 3};
}

QRect PairLayout::phaseTrack() const
{
    return {bars().left(), phaseTop, bars().width(), phaseHeight};
}

QRect PairLayout::phaseArea() const
{
    return phaseTrack().adjusted(-kPhaseMarkerWidth / 2, -kPhaseOverhang, kPhaseMarkerWidth / 2,
                                 kPhaseOverhang);
}

int PairLayout::phaseMarkerLeft(float phase) const
{
    const QRect track = phaseTrack();
    const float half = static_cast<float>(track.width()) / 2.0F;
    const float middle = static_cast<float>(track.left()) + half + std::clamp(phase, -1.0F, 1.0F) * half;
    return static_cast<int>(std::lround(middle)) - kPhaseMarkerWidth / 2;
}

QRect PairLayout::button(int row, int column, int columns) const
{
    const int width = (pitch - kButtonGap) / columns;
    return {fieldLeft + kButtonGap + column * width, buttonsTop + row * MeteringLayout::kButtonHeight,
            width - kButtonGap, MeteringLayout::kButtonHeight - kButtonGap};
}

MeteringLayout MeteringLayout::forContent(const QSize& content, int pairs, const MeterScale& scale,
                                          int buttonRows)
{
    MeteringLayout layout;
    layout.rows = rowsFor(content, pairs);
    layout.columns = (pairs + layout.rows - 1) / layout.rows;
    layout.rowHeight = content.height() / layout.rows;
    PairLayout& pair = layout.pair;
    pair.detail = detailFor(pitchFor(content.width(), pairs, layout.rows), layout.rowHeight);

    const Measures measures = measuresOf(pair.detail);
    layout.margin = measures.left;
    layout.rightMargin = measures.right;
    const int room = std::max(0, content.width() - measures.left - measures.right);
    // Few pairs stay together.
    const int widest = 2 * (4 * measures.barWidth + 3 * measures.barGap);
    layout.pitch = std::clamp(room / layout.columns, 4, widest);
    layout.left = measures.left + (room - layout.columns * layout.pitch) / 2;
    pair.pitch = layout.pitch;
    pair.size = QSize(layout.pitch, layout.rowHeight);
    setBars(pair, measures, layout.columns);
    setRows(pair, measures);
    setScale(pair, measures, scale, buttonRows);
    return layout;
}

QRect MeteringLayout::cell(int index, int pairs) const
{
    const QRect field(left + index % columns * pitch, index / columns * rowHeight, pitch, rowHeight);
    return field.adjusted(isFirst(index) ? -margin : 0, 0, isLast(index, pairs) ? rightMargin : 0, 0);
}

PairLayout MeteringLayout::layoutOf(int index, int pairs) const
{
    PairLayout layout = pair;
    layout.size = cell(index, pairs).size();
    layout.fieldLeft = isFirst(index) ? margin : 0;
    return layout;
}
