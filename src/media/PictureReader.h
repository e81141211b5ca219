#pragma once

#include "media/MediaHandles.h"
#include "server/sources/VideoBuffer.h"

namespace Velmora::Media {

/// Turns decoded pictures into planes of code values, without loss where their layout is one of 4:2:2 or
/// 4:4:4 with 8 to 12 bits.
///
/// 4:2:0 gets its missing lines of colour by swscale, field by field where it is interlaced. More than 12
/// bits lose the lowest ones.
class PictureReader {
public:
    /// What the frame's pictures are, but for rate and scan, which the frame does not know.
    static Server::VideoFormat formatOf(const AVFrame& frame);

    /// Reads the frame into the buffer, which has the format of the frame. False when it cannot be read.
    bool read(const AVFrame& frame, Server::VideoBuffer& buffer);

private:
    const AVFrame* rearranged(const AVFrame& frame, bool interlaced);
    bool prepare(const AVFrame& frame, int layout, int lines);
    bool scaleField(const AVFrame& frame, int field, int fields);

    MediaHandle<SwsContext> m_scaler;
    MediaHandle<AVFrame> m_rearranged;
};

} // namespace Velmora::Media
