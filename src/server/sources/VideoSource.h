#pragma once

#include "server/sources/VideoFrame.h"

namespace Velmora::Server {

/// Where pictures come from, produced on demand.
///
/// A source runs at the pace of its reader and never waits: when a frame is due its time stamp says. Not for
/// use from two threads at once. The sound that belongs to the pictures is an AudioSource of its own.
class VideoSource {
public:
    VideoSource() = default;
    VideoSource(const VideoSource&) = delete;
    VideoSource& operator=(const VideoSource&) = delete;
    virtual ~VideoSource() = default;

    /// Of the next frame as far as it is known before it was read; each frame tells its own.
    virtual const VideoFormat& format() const = 0;

    /// The next frame, or null when the source has ended. Its samples are the source's and stay until the
    /// next call.
    [[nodiscard]] virtual const VideoFrame* next() = 0;

    /// Reading begins again after a time without: pictures that belong to that time are passed over, where
    /// there are such.
    virtual void resume() { }
};

} // namespace Velmora::Server
