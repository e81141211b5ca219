// Whatever a segment's header says, a picture that is found sound lies within the segment.

#include "Check.h"
#include "feed/SegmentHeader.h"

#include <cstdint>
#include <cstring>

using namespace Velmora::Feed;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    SegmentLayout layout;
    SlotValues slot;
    std::uint64_t segmentBytes = 0;
    if (size < sizeof(layout) + sizeof(slot) + sizeof(segmentBytes))
        return 0;
    std::memcpy(&layout, data, sizeof(layout));
    std::memcpy(&slot, data + sizeof(layout), sizeof(slot));
    std::memcpy(&segmentBytes, data + sizeof(layout) + sizeof(slot), sizeof(segmentBytes));
    if (!isSound(layout, segmentBytes) || !isSound(slot, layout))
        return 0;

    // In numbers that cannot overflow.
    using Wide = unsigned __int128;
    const Wide begin = Wide{layout.pixelsOffset} + Wide{slot.frame % layout.slotCount} * layout.slotBytes;
    const Wide end = begin + Wide{slot.strideBytes} * slot.height;
    FUZZ_CHECK(begin >= sizeof(SegmentHeader));
    FUZZ_CHECK(end <= segmentBytes);
    FUZZ_CHECK(Wide{slot.width} * sizeof(std::uint32_t) <= slot.strideBytes);
    return 0;
}
