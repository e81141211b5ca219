#pragma once

#include "feed/PictureView.h"

#include <QByteArray>
#include <QSize>

#include <optional>
#include <string>
#include <vector>

namespace Velmora::Feed {

inline constexpr quint16 kFeedPort = 29443;

/// What a reader sends, big-endian:
///
/// | bytes | what                                                            |
/// |-------|-----------------------------------------------------------------|
/// | 4     | "WZFQ"                                                          |
/// | 2     | version, 1                                                      |
/// | 2, 2  | the largest width and height that are of use                    |
/// | 2     | length of the image's name, up to 32                            |
/// | 2     | bit 0: the newest picture is wanted even if it has been sent on this connection |
/// | 32    | the image's name, filled up with zeros                          |
///
/// A reader asks anew when it has got a picture, so never more than one is on its way, and that is the newest
/// one. A request replaces an earlier one that was not answered yet.
struct FeedRequest {
    static constexpr int kBytes = 46;

    std::string image;
    QSize size;
    bool again = false;

    QByteArray serialise() const;
    /// Nothing when @p bytes, of which there must be kBytes, are no request.
    static std::optional<FeedRequest> parse(const char* bytes);
};

/// What comes back, big-endian:
///
/// | bytes | what                                                                  |
/// |-------|-----------------------------------------------------------------------|
/// | 4     | "WZFP"                                                                |
/// | 2     | version, 1                                                            |
/// | 2     | bit 0: the writer of the picture is gone                              |
/// | 2, 2  | width and height; both 0: only the state has changed                  |
/// | 8     | frame                                                                 |
/// | 8     | time stamp, ns                                                        |
/// | 4     | bytes that follow: the pixels, row by row, little-endian premultiplied ARGB, as a zlib stream |
struct FeedReply {
    static constexpr int kHeaderBytes = 32;

    bool isStale = false;
    /// Empty when only the state is told.
    std::vector<std::uint32_t> pixels;
    int width = 0;
    int height = 0;
    std::uint64_t frame = 0;
    std::chrono::nanoseconds timeStamp{0};

    PictureView view() const { return {pixels.data(), width, height, width, frame, timeStamp}; }

    /// The message for a picture, or for the mere state when @p picture has no pixels. Empty when memory is
    /// short.
    static QByteArray serialise(const PictureView& picture, bool isStale);
};

/// Cuts a stream of bytes into replies.
class FeedReplyParser {
public:
    /// Takes in what has come. False when the stream is damaged; nothing more can be got from it then.
    [[nodiscard]] bool append(const QByteArray& bytes);
    /// The next whole reply. Nothing as well when one is damaged, see isDamaged().
    std::optional<FeedReply> next();
    bool isDamaged() const { return m_isDamaged; }
    void clear();

private:
    bool readHeader();
    bool inflate();

    QByteArray m_buffer;
    bool m_isDamaged = false;
    bool m_hasHeader = false;
    FeedReply m_reply;
    quint32 m_payloadBytes = 0;
};

} // namespace Velmora::Feed
