#pragma once

#include "feed/PictureView.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>

namespace Velmora::Feed {

/// What never changes in a segment. All numbers are of the host's byte order, since no other host sees them.
struct SegmentLayout {
    static constexpr std::uint32_t kMagic = 0x445A5746; // "FWZD"
    static constexpr std::uint16_t kVersion = 1;
    static constexpr std::uint32_t kArgb32Premultiplied = 1;

    std::uint32_t magic = 0; ///< written last, as a sign that the rest is there
    std::uint16_t version = kVersion;
    std::uint16_t slotCount = 0;
    std::uint32_t pixelFormat = kArgb32Premultiplied;
    std::uint32_t reserved = 0;
    std::uint64_t slotBytes = 0; ///< room for the pixels of one picture
    std::uint64_t pixelsOffset = 0; ///< of the first slot's pixels, from the start of the segment
};

/// What is said of one picture, as read once by a reader.
struct SlotValues {
    std::uint32_t sequence = 0; ///< odd while the slot is being written
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t strideBytes = 0;
    std::uint64_t frame = 0;
    std::int64_t timeStampNs = 0;
};

/// The same in shared memory. The sequence is the lock of the slot: a reader that finds it even, and the same
/// after it has used the pixels, has seen one whole picture.
struct FrameSlot {
    std::atomic<std::uint32_t> sequence{0};
    std::atomic<std::uint32_t> width{0};
    std::atomic<std::uint32_t> height{0};
    std::atomic<std::uint32_t> strideBytes{0};
    std::atomic<std::uint64_t> frame{0};
    std::atomic<std::int64_t> timeStampNs{0};

    SlotValues values() const;
};

/// The beginning of a segment; the pixels of the slots follow, page-aligned.
///
/// Frame n is in slot n mod slotCount. With four slots a reader has the time of three frames until the one
/// that it draws is overwritten.
struct SegmentHeader {
    static constexpr std::uint16_t kMostSlots = 8;

    SegmentLayout layout;
    std::atomic<std::uint64_t> newestFrame{0}; ///< 0: none yet
    std::atomic<std::uint32_t> isRetired{0}; ///< another segment of the same name takes its place
    std::atomic<std::uint32_t> reserved{0};
    std::array<FrameSlot, kMostSlots> frameSlots;
};
static_assert(std::atomic<std::uint64_t>::is_always_lock_free
              && std::atomic<std::uint32_t>::is_always_lock_free);

/// Whether a segment of @p segmentBytes can be what its layout says.
bool isSound(const SegmentLayout& layout, std::uint64_t segmentBytes);
/// Whether a slot of a sound segment holds a whole picture that lies within the slot.
bool isSound(const SlotValues& slot, const SegmentLayout& layout);

} // namespace Velmora::Feed
