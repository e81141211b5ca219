#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace Velmora::Media {

/// What pictures and sound of one file have to agree on, since each reads the file by itself.
class MediaTiming {
public:
    explicit MediaTiming(std::chrono::nanoseconds loopLength)
        : m_loopLength(loopLength.count())
    {
    }

    /// After which time in the file it begins again where it is played in a loop; 0 when only the end itself
    /// can tell. The file says it, and the pictures when they have come to their end.
    std::chrono::nanoseconds loopLength() const { return std::chrono::nanoseconds(m_loopLength); }
    void setLoopLength(std::chrono::nanoseconds length) { m_loopLength = length.count(); }

    /// The time in the file for one that counts on over the ends of loops.
    std::chrono::nanoseconds inFile(std::chrono::nanoseconds position, bool isLooping) const
    {
        return isLooping && m_loopLength > 0 ? position % loopLength() : position;
    }

private:
    std::atomic<std::int64_t> m_loopLength;
};

} // namespace Velmora::Media
