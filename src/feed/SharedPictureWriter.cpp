#include "feed/SharedPictureWriter.h"

#include "logging/LogThrottle.h"

#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

namespace Velmora::Feed {

namespace {

constexpr std::uint16_t kSlots = 4;
constexpr std::uint64_t kPage = 4096;
/// Rows begin at a line of the cache.
constexpr std::uint64_t kRowAlignment = 64;

std::uint64_t roundedUp(std::uint64_t value, std::uint64_t step)
{
    return (value + step - 1) / step * step;
}

} // namespace

SharedPictureWriter::SharedPictureWriter(std::string segmentName)
    : m_name(std::move(segmentName))
{
}

SharedPictureWriter::~SharedPictureWriter()
{
    retire();
}

void SharedPictureWriter::retire()
{
    if (!m_segment.isValid())
        return;
    header().isRetired.store(1, std::memory_order_release);
    if (m_segment.isNamed(m_name))
        Segment::unlink(m_name);
    m_segment = {};
}

bool SharedPictureWriter::reserve(std::uint64_t pictureBytes)
{
    if (m_segment.isValid() && header().layout.slotBytes >= pictureBytes)
        return true;
    const std::uint64_t slotBytes = roundedUp(pictureBytes, kPage);
    const std::uint64_t pixelsOffset = roundedUp(sizeof(SegmentHeader), kPage);
    retire();
    m_segment = Segment::create(m_name, pixelsOffset + kSlots * slotBytes);
    if (!m_segment.isValid()) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "Picture feed: cannot make the segment '{}': {}", m_name,
                     std::strerror(errno));
        return false;
    }
    auto* const header = new (m_segment.data()) SegmentHeader;
    header->layout.slotCount = kSlots;
    header->layout.slotBytes = slotBytes;
    header->layout.pixelsOffset = pixelsOffset;
    std::atomic_ref(header->layout.magic).store(SegmentLayout::kMagic, std::memory_order_release);
    return true;
}

FrameSlot& SharedPictureWriter::nextSlot()
{
    return header().frameSlots[(m_frame + 1) % kSlots];
}

PictureBuffer SharedPictureWriter::begin(int width, int height)
{
    m_isWriting = false;
    if (width <= 0 || height <= 0 || width > kLargestSide || height > kLargestSide)
        return {};
    const std::uint64_t strideBytes =
        roundedUp(static_cast<std::uint64_t>(width) * sizeof(std::uint32_t), kRowAlignment);
    const std::uint64_t pictureBytes = strideBytes * static_cast<std::uint64_t>(height);
    if (pictureBytes > kLargestPictureBytes || !reserve(pictureBytes))
        return {};
    FrameSlot& slot = nextSlot();
    slot.sequence.store(slot.sequence.load(std::memory_order_relaxed) | 1U, std::memory_order_relaxed);
    // Nothing of the picture may be written before everybody can see that it is being written.
    std::atomic_thread_fence(std::memory_order_seq_cst);
    slot.width.store(static_cast<std::uint32_t>(width), std::memory_order_relaxed);
    slot.height.store(static_cast<std::uint32_t>(height), std::memory_order_relaxed);
    slot.strideBytes.store(static_cast<std::uint32_t>(strideBytes), std::memory_order_relaxed);
    m_isWriting = true;

    const SegmentLayout& layout = header().layout;
    char* const pixels = static_cast<char*>(m_segment.data()) + layout.pixelsOffset
        + (m_frame + 1) % kSlots * layout.slotBytes;
    return {reinterpret_cast<std::uint32_t*>(pixels), width, height,
            static_cast<std::ptrdiff_t>(strideBytes / sizeof(std::uint32_t))};
}

void SharedPictureWriter::publish(std::chrono::nanoseconds timeStamp)
{
    if (!std::exchange(m_isWriting, false))
        return;
    FrameSlot& slot = nextSlot();
    ++m_frame;
    slot.frame.store(m_frame, std::memory_order_relaxed);
    slot.timeStampNs.store(timeStamp.count(), std::memory_order_relaxed);
    slot.sequence.fetch_add(1, std::memory_order_release); // even again, and another one than before
    header().newestFrame.store(m_frame, std::memory_order_release);
}

} // namespace Velmora::Feed
