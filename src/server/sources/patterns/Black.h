#pragma once

#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

class Black : public Pattern {
public:
    void paint(PictureCanvas& canvas) const override { canvas.fill(canvas.codes().grey(0.0)); }
};

} // namespace Velmora::Server
