#pragma once

#include <cstdint>

namespace Velmora::Server {

/// Which tone bursts a channel sends, for checking the dynamic behaviour of programme meters.
enum class BurstProgramme {
    /// IEC 60268-10 Type I: 10, 5, 3 and 0.4 ms.
    TypeI,
    /// IEC 60268-10 Type II: 100, 10, 5, 1.5 and 0.5 ms.
    TypeII,
    /// One burst of free length, repeated at a free period.
    Single,
};

/// The timing of a burst programme, in samples at 48 kHz.
///
/// The two standard programmes begin with one second of steady tone, which gives the reference indication,
/// and go on with the bursts from the longest to the shortest, one every six seconds: the slowest return, 24
/// dB in 2.8 s, leaves 50 dB between a burst and the rest of the one before. Then they begin anew.
class BurstTimer {
public:
    static constexpr double kSlotSeconds = 6.0;

    /// @p seconds and @p periodSeconds are used by BurstProgramme::Single only; the period is at least one
    /// sample.
    BurstTimer(BurstProgramme programme, double seconds, double periodSeconds);

    struct Moment {
        bool on = false;
        /// Samples since the start of the present slot; each burst starts with its slot.
        std::uint64_t sinceStart = 0;
    };
    /// What happens @p frame samples after the start of the programme. A burst of length T holds the samples
    /// at 0 <= t < T.
    Moment at(std::uint64_t frame) const;

private:
    static constexpr unsigned kMostBursts = 6;

    std::uint64_t m_lengths[kMostBursts] = {};
    unsigned m_count = 0;
    std::uint64_t m_slotFrames = 1;
};

} // namespace Velmora::Server
