#pragma once

#include "server/sources/AudioBlock.h"

namespace Velmora::Server {

/// Where sound comes from: up to 16 channels of planar float samples at 48 kHz, produced on demand.
///
/// A source runs at the pace of its reader and never waits. Its samples depend only on how many frames were
/// read before, not on the sizes of the reads. Not for use from two threads at once.
class AudioSource {
public:
    AudioSource() = default;
    AudioSource(const AudioSource&) = delete;
    AudioSource& operator=(const AudioSource&) = delete;
    virtual ~AudioSource() = default;

    /// Writes the next planes.frames samples of every channel into the caller's planes.
    ///
    /// Returns a view of what was written: fewer frames than asked for when the source has ended, null for
    /// channels that the source lacks or the caller did not want. The planes of null channels are left
    /// untouched.
    [[nodiscard]] virtual AudioBlock read(const AudioPlanes& planes) = 0;

    /// Reading begins again after a time without: sound that belongs to that time is passed over, where there
    /// is such.
    virtual void resume() { }

    /// The time stamp of the next sample to be read.
    virtual std::uint64_t position() const = 0;
};

} // namespace Velmora::Server
