// A stream of the picture feed, cut at places that the input chooses, gives the same replies as in one piece,
// each with all its pixels; and what is taken for a request is one that can be written.

#include "Check.h"
#include "feed/FeedMessages.h"

#include <algorithm>
#include <cstdint>

using namespace Velmora::Feed;

namespace {

struct Outcome {
    std::vector<std::pair<std::uint64_t, std::vector<std::uint32_t>>> pictures;
    bool isDamaged = false;
};

template<typename PieceSize>
Outcome parse(const QByteArray& stream, PieceSize&& pieceSize)
{
    // What the input claims is paid for in memory and time, for which the limits of the real parser are wide.
    constexpr std::size_t kEnough = 8;
    Outcome outcome;
    FeedReplyParser parser;
    for (int offset = 0; offset < stream.size() && outcome.pictures.size() < kEnough;) {
        const int piece = pieceSize();
        if (!parser.append(stream.mid(offset, piece)))
            break;
        offset += piece;
        while (auto reply = parser.next()) {
            FUZZ_CHECK(reply->pixels.size()
                       == static_cast<std::size_t>(reply->width) * static_cast<std::size_t>(reply->height));
            outcome.pictures.emplace_back(reply->frame, std::move(reply->pixels));
        }
    }
    outcome.isDamaged = parser.isDamaged();
    return outcome;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const QByteArray stream(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    const auto whole = parse(stream, [&] { return static_cast<int>(stream.size()); });
    const auto pieces = parse(stream, [&] { return 1 + data[0] % 61; });
    const auto common = std::min(whole.pictures.size(), pieces.pictures.size());
    FUZZ_CHECK(common >= 8 || whole.isDamaged == pieces.isDamaged);
    FUZZ_CHECK(std::equal(whole.pictures.begin(),
                          whole.pictures.begin() + static_cast<std::ptrdiff_t>(common),
                          pieces.pictures.begin()));

    if (stream.size() >= FeedRequest::kBytes) {
        if (const auto request = FeedRequest::parse(stream.constData())) {
            const QByteArray written = request->serialise();
            const auto again = FeedRequest::parse(written.constData());
            FUZZ_CHECK(again && again->image == request->image && again->size == request->size);
        }
    }
    return 0;
}
