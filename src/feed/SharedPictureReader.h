#pragma once

#include "feed/PictureReader.h"
#include "feed/Segment.h"
#include "feed/SegmentHeader.h"

#include <optional>
#include <string>

namespace Velmora::Feed {

/// Reads one picture from shared memory, straight from where the writer put it.
///
/// Everything that the segment says is copied once and checked before it is used, at every picture. The
/// writer may come, go, be killed or change the segment at any time; while there is none, read() looks for it
/// anew. What it cannot defend against is a segment that its own user cuts short in the very moment of
/// drawing; nobody else can write to it.
class SharedPictureReader final : public PictureReader {
public:
    explicit SharedPictureReader(std::string segmentName);

    Result read(const Draw& draw, bool again = false) override;
    State state() override;

private:
    const SegmentHeader& header() const { return *static_cast<const SegmentHeader*>(m_segment.data()); }
    bool open();
    void renewIfReplaced();
    std::optional<SlotValues> newestSlot() const;

    std::string m_name;
    Segment m_segment;
    SegmentLayout m_layout;
    std::uint64_t m_drawnFrame = 0;
    bool m_mustDraw = false;
};

} // namespace Velmora::Feed
