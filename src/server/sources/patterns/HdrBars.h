#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// Bars for high dynamic range, ITU-R BT.2111 (SMPTE ST 2111-1): the PQ form for PQ, the HLG form for every
/// other curve, for which the recommendation knows none. Laid out for 1920 x 1080 and scaled.
class HdrBars : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
};

} // namespace Velmora::Server
