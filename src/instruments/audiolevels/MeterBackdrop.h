#pragma once

#include "instruments/audiolevels/MeterLayout.h"

#include <QPixmap>

#include <bitset>

class WzCustomStyle;

using MeterPairs = std::bitset<MeterLayout::kPairs>;

/// All of the meters that no reading changes: scale, labels, unlit bars, and the frames of pairs that are not
/// present.
QPixmap renderMeterBackdrop(const MeterLayout& layout, const QSize& size, const MeterPairs& present,
                            const WzCustomStyle& style, qreal devicePixelRatio);
