#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// Circular zone plate: spatial frequency grows with the distance from the centre and reaches half the
/// sampling frequency at the left and right edge. Grey, from black to white.
class ZonePlate : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override;
};

} // namespace Velmora::Server
