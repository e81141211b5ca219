#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// Grey from black at the left to white at the right edge.
class LevelRamp : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
};

/// Every code that a link can carry, from the lowest at the left to the highest at the right edge: one third
/// of the height for each component, while the other two rest in the middle of their range.
class FullRangeSweep : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
};

} // namespace Velmora::Server
