#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// SDI check field (SMPTE RP 178 for standard definition, RP 198 for high definition): the upper half
/// stresses a receiver's equaliser, the lower its phase-locked loop. The words are those of a 10-bit 4:2:2
/// link; where components are carried otherwise the same levels are only a picture.
class CheckField : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
    void advance(PictureCanvas& canvas, std::uint64_t number) const override;
};

} // namespace Velmora::Server
