#include "feed/SharedPictureReader.h"

#include "logging/LogThrottle.h"

#include <cstring>
#include <utility>

namespace Velmora::Feed {

SharedPictureReader::SharedPictureReader(std::string segmentName)
    : m_name(std::move(segmentName))
{
}

bool SharedPictureReader::open()
{
    Segment segment = Segment::open(m_name);
    if (!segment.isValid() || segment.size() < sizeof(SegmentHeader))
        return false;
    SegmentLayout layout;
    std::memcpy(&layout, segment.data(), sizeof(layout));
    // A writer that has not come to the layout yet is no damage.
    if (layout.magic == 0)
        return false;
    if (!isSound(layout, segment.size())) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Picture feed: the segment '{}' is damaged and not used", m_name);
        return false;
    }
    const bool hasPicture =
        static_cast<const SegmentHeader*>(std::as_const(segment).data())->newestFrame != 0;
    if (m_segment.isValid() && !hasPicture)
        return false;
    m_segment = std::move(segment);
    m_layout = layout;
    m_drawnFrame = 0;
    return true;
}

/// The last picture of an old segment stays until the new one can be opened and has a picture.
void SharedPictureReader::renewIfReplaced()
{
    if (!m_segment.isValid()) {
        open();
        return;
    }
    const bool isRetired = header().isRetired.load(std::memory_order_acquire) != 0;
    if (m_segment.isWhole() && !isRetired && m_segment.isLocked())
        return;
    if (!m_segment.isNamed(m_name))
        open();
    if (!m_segment.isWhole())
        m_segment = {};
}

std::optional<SlotValues> SharedPictureReader::newestSlot() const
{
    const std::uint64_t newest = header().newestFrame.load(std::memory_order_acquire);
    if (newest == 0)
        return std::nullopt;
    const SlotValues slot = header().frameSlots[newest % m_layout.slotCount].values();
    // A slot that holds another frame by now is torn: it has been overwritten since, or never was what it
    // says.
    if (slot.frame != newest || !isSound(slot, m_layout))
        return std::nullopt;
    return slot;
}

PictureReader::Result SharedPictureReader::read(const Draw& draw, bool again)
{
    renewIfReplaced();
    if (!m_segment.isValid())
        return Result::None;
    const auto newest = header().newestFrame.load(std::memory_order_acquire);
    if (newest == 0)
        return Result::None;
    if (newest == m_drawnFrame && !again && !m_mustDraw)
        return Result::Unchanged;
    const auto slot = newestSlot();
    if (!slot)
        return Result::Torn;

    const auto place = slot->frame % m_layout.slotCount;
    const char* const pixels =
        static_cast<const char*>(m_segment.data()) + m_layout.pixelsOffset + place * m_layout.slotBytes;
    draw({reinterpret_cast<const std::uint32_t*>(pixels), static_cast<int>(slot->width),
          static_cast<int>(slot->height),
          static_cast<std::ptrdiff_t>(slot->strideBytes / sizeof(std::uint32_t)), slot->frame,
          std::chrono::nanoseconds(slot->timeStampNs)});

    // All reading of pixels comes before the second look at the sequence.
    std::atomic_thread_fence(std::memory_order_acquire);
    m_mustDraw = header().frameSlots[place].sequence.load(std::memory_order_relaxed) != slot->sequence;
    if (m_mustDraw)
        return Result::Torn;
    m_drawnFrame = slot->frame;
    return Result::Drawn;
}

PictureReader::State SharedPictureReader::state()
{
    renewIfReplaced();
    if (!m_segment.isValid() || header().newestFrame.load(std::memory_order_acquire) == 0)
        return State::NoPicture;
    const bool isLive = header().isRetired.load(std::memory_order_acquire) == 0 && m_segment.isLocked();
    return isLive ? State::Live : State::Stale;
}

} // namespace Velmora::Feed
