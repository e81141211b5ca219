#pragma once

#include "server/sources/PictureCanvas.h"

#include <cstdint>

namespace Velmora::Server {

/// One kind of test picture.
class Pattern {
public:
    Pattern() = default;
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;
    virtual ~Pattern() = default;

    /// Paints the whole picture of frame 0.
    virtual void paint(PictureCanvas& canvas) const = 0;
    /// Turns the picture of frame @p number - 1 into that of @p number, touching only what differs. A picture
    /// that stands still need not override it.
    virtual void advance(PictureCanvas&, std::uint64_t /*number*/) const { }
};

} // namespace Velmora::Server
