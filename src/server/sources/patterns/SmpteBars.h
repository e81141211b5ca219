#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// SMPTE RP 219-1 (ARIB STD-B28) multi-format bars with 75 % white in the second and black in the third row's
/// left field. Edges are those of 1920 x 1080, scaled, also for standard definition.
class SmpteBars : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
};

} // namespace Velmora::Server
