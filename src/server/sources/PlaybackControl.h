#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>

namespace Velmora::Server {

/// How a media file is played. Shared by whoever controls it and the sources that play it, which look at it
/// with every read; for use from any thread.
class PlaybackControl {
public:
    using Clock = std::chrono::steady_clock;

    /// The file is played from its beginning, from now on.
    void start()
    {
        const std::lock_guard lock(m_mutex);
        setPlace({});
    }

    void setPaused(bool paused)
    {
        const std::lock_guard lock(m_mutex);
        setPlace(place());
        m_paused = paused;
    }
    bool isPaused() const { return m_paused; }

    /// Whether to begin again at the end.
    void setLooping(bool looping) { m_looping = looping; }
    bool isLooping() const { return m_looping; }

    /// Goes to a time in the file with the next read.
    void seek(std::chrono::nanoseconds position)
    {
        const std::lock_guard lock(m_mutex);
        setPlace(position);
        m_position = position.count();
        ++m_seeks;
    }
    /// Changes with each seek.
    std::uint32_t seekCount() const { return m_seeks; }
    std::chrono::nanoseconds seekPosition() const { return std::chrono::nanoseconds(m_position); }

    /// The time in the file that has come by now, counted on behind the file's end: where those go on who
    /// have not read for a while.
    std::chrono::nanoseconds position() const
    {
        const std::lock_guard lock(m_mutex);
        return place();
    }

private:
    std::chrono::nanoseconds place() const { return m_paused ? m_place : m_place + (Clock::now() - m_since); }
    void setPlace(std::chrono::nanoseconds place)
    {
        m_place = place;
        m_since = Clock::now();
    }

    std::atomic<bool> m_paused = false;
    std::atomic<bool> m_looping = false;
    std::atomic<std::int64_t> m_position = 0;
    std::atomic<std::uint32_t> m_seeks = 0;

    mutable std::mutex m_mutex; ///< of the two below
    std::chrono::nanoseconds m_place{0}; ///< at the time m_since
    Clock::time_point m_since = Clock::now();
};

} // namespace Velmora::Server
