#pragma once

#include "feed/PictureView.h"
#include "feed/Segment.h"
#include "feed/SegmentHeader.h"

#include <string>

namespace Velmora::Feed {

/// The writing end of one picture in shared memory. It never waits for readers and does not know of them.
///
/// The segment is made with the first picture and a larger one when a picture does not fit; its readers are
/// told by a mark in the old one. It is removed with the writer. A writer that is killed leaves it; see
/// SegmentNames.
class SharedPictureWriter {
public:
    explicit SharedPictureWriter(std::string segmentName);
    SharedPictureWriter(const SharedPictureWriter&) = delete;
    SharedPictureWriter& operator=(const SharedPictureWriter&) = delete;
    ~SharedPictureWriter();

    /// Memory for the next picture, all of which must be written before publish(). Null pixels when the size
    /// is none or no memory is to be had, which is logged.
    PictureBuffer begin(int width, int height);
    /// Shows what begin() gave out. @p timeStamp is that of the frame's source.
    void publish(std::chrono::nanoseconds timeStamp);

    /// Of the last published picture; 0 before the first.
    std::uint64_t frame() const { return m_frame; }

private:
    bool reserve(std::uint64_t pictureBytes);
    void retire();
    SegmentHeader& header() { return *static_cast<SegmentHeader*>(m_segment.data()); }
    FrameSlot& nextSlot();

    std::string m_name;
    Segment m_segment;
    std::uint64_t m_frame = 0;
    bool m_isWriting = false;
};

} // namespace Velmora::Feed
