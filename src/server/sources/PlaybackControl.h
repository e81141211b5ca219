#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace Velmora::Server {

/// How a media file is played. Shared by whoever controls it and the sources that play it, which look at it
/// with every read; for use from any thread.
class PlaybackControl {
public:
    void setPaused(bool paused) { m_paused = paused; }
    bool isPaused() const { return m_paused; }

    /// Whether to begin again at the end.
    void setLooping(bool looping) { m_looping = looping; }
    bool isLooping() const { return m_looping; }

    /// Goes to a time in the file with the next read.
    void seek(std::chrono::nanoseconds position)
    {
        m_position = position.count();
        ++m_seeks;
    }
    /// Changes with each seek.
    std::uint32_t seekCount() const { return m_seeks; }
    std::chrono::nanoseconds seekPosition() const { return std::chrono::nanoseconds(m_position); }

private:
    std::atomic<bool> m_paused = false;
    std::atomic<bool> m_looping = false;
    std::atomic<std::int64_t> m_position = 0;
    std::atomic<std::uint32_t> m_seeks = 0;
};

} // namespace Velmora::Server
