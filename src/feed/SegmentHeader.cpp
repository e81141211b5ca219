#include "feed/SegmentHeader.h"

namespace Velmora::Feed {

SlotValues FrameSlot::values() const
{
    SlotValues values;
    values.sequence = sequence.load(std::memory_order_acquire);
    values.width = width.load(std::memory_order_relaxed);
    values.height = height.load(std::memory_order_relaxed);
    values.strideBytes = strideBytes.load(std::memory_order_relaxed);
    values.frame = frame.load(std::memory_order_relaxed);
    values.timeStampNs = timeStampNs.load(std::memory_order_relaxed);
    return values;
}

bool isSound(const SegmentLayout& layout, std::uint64_t segmentBytes)
{
    constexpr std::uint16_t kFewestSlots = 2;
    const bool isKnown = layout.magic == SegmentLayout::kMagic && layout.version == SegmentLayout::kVersion
        && layout.pixelFormat == SegmentLayout::kArgb32Premultiplied;
    if (!isKnown || layout.slotCount < kFewestSlots || layout.slotCount > SegmentHeader::kMostSlots)
        return false;
    if (layout.slotBytes == 0 || layout.slotBytes > kLargestPictureBytes
        || layout.slotBytes % sizeof(std::uint32_t) != 0)
        return false;
    // No sum or product can overflow from here on.
    return layout.pixelsOffset >= sizeof(SegmentHeader) && layout.pixelsOffset % sizeof(std::uint32_t) == 0
        && layout.pixelsOffset <= segmentBytes
        && layout.slotBytes * layout.slotCount <= segmentBytes - layout.pixelsOffset;
}

bool isSound(const SlotValues& slot, const SegmentLayout& layout)
{
    if (slot.sequence % 2 != 0 || slot.frame == 0)
        return false;
    if (slot.width == 0 || slot.height == 0 || slot.width > kLargestSide || slot.height > kLargestSide)
        return false;
    return slot.strideBytes >= slot.width * sizeof(std::uint32_t)
        && slot.strideBytes % sizeof(std::uint32_t) == 0
        && static_cast<std::uint64_t>(slot.strideBytes) * slot.height <= layout.slotBytes;
}

} // namespace Velmora::Feed
