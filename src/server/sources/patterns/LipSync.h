#pragma once

#include "server/sources/AudioSource.h"
#include "server/sources/patterns/Pattern.h"

namespace Velmora::Server {

/// A black picture that is white for one frame about every second, with the count of frames since then burnt
/// in. ClickTrack is the sound to it.
class LipSync : public Pattern {
public:
    /// Frames from one flash to the next, of which the first is frame 0: the whole frames nearest to one
    /// second.
    static unsigned period(const VideoFormat& format);

    void paint(PictureCanvas& canvas) const override;
    void advance(PictureCanvas& canvas, std::uint64_t number) const override;
};

/// A burst of 1 kHz at -18 dBFS on all channels for as long as each flash of LipSync lasts, beginning with
/// the first sample in it.
class ClickTrack : public AudioSource {
public:
    explicit ClickTrack(const VideoFormat& format);

    AudioBlock read(const AudioPlanes& planes) override;
    std::uint64_t position() const override { return m_position; }

private:
    float sampleAt(std::uint64_t position) const;

    std::uint64_t m_frameRateNumerator;
    std::uint64_t m_frameRateDenominator;
    std::uint64_t m_period;
    std::uint64_t m_position = 0;
};

} // namespace Velmora::Server
