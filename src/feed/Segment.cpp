#include "feed/Segment.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Velmora::Feed {

namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

struct flock wholeFile(short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    return lock;
}

bool isLockedByAnother(int descriptor)
{
    auto lock = wholeFile(F_RDLCK);
    return ::fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

} // namespace

Segment::Segment(Segment&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_data(std::exchange(other.m_data, nullptr))
    , m_bytes(std::exchange(other.m_bytes, 0))
{
}

Segment& Segment::operator=(Segment&& other) noexcept
{
    Segment old(std::move(*this));
    m_descriptor = std::exchange(other.m_descriptor, -1);
    m_data = std::exchange(other.m_data, nullptr);
    m_bytes = std::exchange(other.m_bytes, 0);
    return *this;
}

Segment::~Segment()
{
    if (m_data != nullptr)
        ::munmap(m_data, m_bytes);
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

Segment Segment::adopt(int descriptor, std::uint64_t bytes, int protection)
{
    Segment segment;
    segment.m_descriptor = descriptor;
    void* const data = ::mmap(nullptr, bytes, protection, MAP_SHARED, descriptor, 0);
    if (data == MAP_FAILED)
        return {};
    segment.m_data = data;
    segment.m_bytes = bytes;
    return segment;
}

Segment Segment::create(const std::string& name, std::uint64_t bytes)
{
    // Somebody who clears up may take a new segment, not locked yet, for an abandoned one; then another try
    // is due.
    constexpr int kTries = 5;
    for (int i = 0; i < kTries; ++i) {
        const int descriptor = ::shm_open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly);
        if (descriptor < 0 && errno == EEXIST) {
            const Segment old = open(name);
            if (old.isValid() && old.isLocked()) {
                errno = EBUSY;
                return {};
            }
            unlink(name);
            continue;
        }
        if (descriptor < 0)
            return {};
        // Reserves the memory: later shortage would end the writer in the middle of a picture.
        if (const int error = ::posix_fallocate(descriptor, 0, static_cast<off_t>(bytes)); error != 0) {
            ::close(descriptor);
            unlink(name);
            errno = error;
            return {};
        }
        Segment segment = adopt(descriptor, bytes, PROT_READ | PROT_WRITE);
        if (segment.isValid() && segment.lock() && segment.isNamed(name))
            return segment;
    }
    return {};
}

Segment Segment::open(const std::string& name)
{
    const int descriptor = ::shm_open(name.c_str(), O_RDONLY | O_CLOEXEC, 0);
    if (descriptor < 0)
        return {};
    struct stat status = {};
    const bool isOurs = ::fstat(descriptor, &status) == 0 && status.st_uid == ::geteuid()
        && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0 && status.st_size > 0;
    if (!isOurs) {
        ::close(descriptor);
        return {};
    }
    return adopt(descriptor, static_cast<std::uint64_t>(status.st_size), PROT_READ);
}

void Segment::unlink(const std::string& name)
{
    ::shm_unlink(name.c_str());
}

bool Segment::lock() const
{
    auto lock = wholeFile(F_WRLCK);
    return ::fcntl(m_descriptor, F_OFD_SETLK, &lock) == 0;
}

bool Segment::isWhole() const
{
    struct stat status = {};
    return ::fstat(m_descriptor, &status) == 0 && static_cast<std::uint64_t>(status.st_size) >= m_bytes;
}

bool Segment::isLocked() const
{
    return isLockedByAnother(m_descriptor);
}

bool Segment::isNamed(const std::string& name) const
{
    const int other = ::shm_open(name.c_str(), O_RDONLY | O_CLOEXEC, 0);
    if (other < 0)
        return false;
    struct stat mine = {};
    struct stat theirs = {};
    const bool isSame = ::fstat(m_descriptor, &mine) == 0 && ::fstat(other, &theirs) == 0
        && mine.st_dev == theirs.st_dev && mine.st_ino == theirs.st_ino;
    ::close(other);
    return isSame;
}

} // namespace Velmora::Feed
