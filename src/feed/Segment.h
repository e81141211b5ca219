#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Velmora::Feed {

/// An open segment of POSIX shared memory, closed and unmapped with the object.
///
/// A writer holds a lock on its segment for as long as it lives; the kernel gives it back however the writer
/// ends, and asking for it needs no right to write. So a segment without the lock is a dead writer's,
/// whatever has become of its process number.
class Segment {
public:
    Segment() = default;
    Segment(Segment&& other) noexcept;
    Segment& operator=(Segment&& other) noexcept;
    ~Segment();

    /// Makes a new segment, readable for its own user only, and locks it. A dead writer's segment of this
    /// name is replaced. Invalid when a living writer has the name, or memory is short; errno tells.
    static Segment create(const std::string& name, std::uint64_t bytes);
    /// Opens a segment for reading. Invalid when there is none, or when it is not this user's own.
    static Segment open(const std::string& name);
    static void unlink(const std::string& name);

    bool isValid() const { return m_bytes != 0; }
    void* data() { return m_data; }
    const void* data() const { return m_data; }
    std::uint64_t size() const { return m_bytes; }
    /// Whether its memory is still there; a damaged segment may have been cut short since it was opened.
    bool isWhole() const;
    /// Whether its writer lives.
    bool isLocked() const;
    /// Whether the name still leads to this segment.
    bool isNamed(const std::string& name) const;

private:
    static Segment adopt(int descriptor, std::uint64_t bytes, int protection);
    bool lock() const;

    int m_descriptor = -1;
    void* m_data = nullptr;
    std::uint64_t m_bytes = 0;
};

} // namespace Velmora::Feed
