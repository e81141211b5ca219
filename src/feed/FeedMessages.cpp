#include "feed/FeedMessages.h"

#include "feed/SegmentNames.h"

#include <QtEndian>

#include <cstring>
#include <utility>

#define ZLIB_CONST
#include <zlib.h>

namespace Velmora::Feed {

namespace {

constexpr quint32 kRequestMagic = 0x575A4651; // "WZFQ"
constexpr quint32 kReplyMagic = 0x575A4650; // "WZFP"
constexpr quint16 kVersion = 1;
constexpr quint16 kStaleFlag = 1;
constexpr quint16 kAgainFlag = 1;
constexpr int kNameBytes = 32;

/// Reads or writes numbers one after the other.
template<typename T>
T take(const char*& place)
{
    const T value = qFromBigEndian<T>(place);
    place += sizeof(T);
    return value;
}

template<typename T>
void put(QByteArray& bytes, T value)
{
    char raw[sizeof(T)];
    qToBigEndian(value, raw);
    bytes.append(raw, sizeof(raw));
}

/// A zlib stream in the making.
class Deflater {
public:
    Deflater()
    {
        // A trace is mostly long runs of nothing, for which run lengths do as well as a search and are
        // faster.
        m_isOpen =
            ::deflateInit2(&m_stream, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS, MAX_MEM_LEVEL, Z_RLE) == Z_OK;
    }
    ~Deflater()
    {
        if (m_isOpen)
            ::deflateEnd(&m_stream);
    }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    bool isOpen() const { return m_isOpen; }
    std::size_t bound(std::size_t bytes) { return ::deflateBound(&m_stream, bytes); }

    bool run(const PictureView& picture, QByteArray& out, int offset)
    {
        m_stream.next_out = reinterpret_cast<Bytef*>(out.data() + offset);
        m_stream.avail_out = static_cast<uInt>(out.size() - offset);
        for (int y = 0; y < picture.height; ++y) {
            m_stream.next_in = reinterpret_cast<const Bytef*>(picture.pixels + y * picture.stride);
            m_stream.avail_in = static_cast<uInt>(picture.width * static_cast<int>(sizeof(std::uint32_t)));
            const bool isLast = y + 1 == picture.height;
            if (::deflate(&m_stream, isLast ? Z_FINISH : Z_NO_FLUSH) != (isLast ? Z_STREAM_END : Z_OK))
                return false;
        }
        out.resize(out.size() - static_cast<int>(m_stream.avail_out));
        return true;
    }

private:
    z_stream m_stream{};
    bool m_isOpen = false;
};

std::uint64_t pictureBytes(int width, int height)
{
    return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * sizeof(std::uint32_t);
}

} // namespace

QByteArray FeedRequest::serialise() const
{
    QByteArray bytes;
    bytes.reserve(kBytes);
    put(bytes, kRequestMagic);
    put(bytes, kVersion);
    put(bytes, static_cast<quint16>(size.width()));
    put(bytes, static_cast<quint16>(size.height()));
    put(bytes, static_cast<quint16>(image.size()));
    put(bytes, static_cast<quint16>(again ? kAgainFlag : 0));
    bytes.append(image.data(), static_cast<int>(image.size()));
    return bytes.leftJustified(kBytes, '\0', true);
}

std::optional<FeedRequest> FeedRequest::parse(const char* bytes)
{
    if (take<quint32>(bytes) != kRequestMagic || take<quint16>(bytes) != kVersion)
        return std::nullopt;
    FeedRequest request;
    request.size.setWidth(take<quint16>(bytes));
    request.size.setHeight(take<quint16>(bytes));
    const auto nameBytes = take<quint16>(bytes);
    request.again = (take<quint16>(bytes) & kAgainFlag) != 0;
    if (nameBytes > kNameBytes || request.size.isEmpty())
        return std::nullopt;
    request.image.assign(bytes, nameBytes);
    if (!SegmentNames::isImageName(request.image))
        return std::nullopt;
    return request;
}

QByteArray FeedReply::serialise(const PictureView& picture, bool isStale)
{
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "pixels travel as they lie in memory");
    const bool hasPixels = picture.pixels != nullptr;
    QByteArray payload;
    if (hasPixels) {
        Deflater deflater;
        if (!deflater.isOpen())
            return {};
        payload.resize(static_cast<int>(deflater.bound(pictureBytes(picture.width, picture.height))));
        if (!deflater.run(picture, payload, 0))
            return {};
    }
    QByteArray bytes;
    bytes.reserve(kHeaderBytes + payload.size());
    put(bytes, kReplyMagic);
    put(bytes, kVersion);
    put(bytes, static_cast<quint16>(isStale ? kStaleFlag : 0));
    put(bytes, static_cast<quint16>(hasPixels ? picture.width : 0));
    put(bytes, static_cast<quint16>(hasPixels ? picture.height : 0));
    put(bytes, static_cast<quint64>(picture.frame));
    put(bytes, static_cast<qint64>(picture.timeStamp.count()));
    put(bytes, static_cast<quint32>(payload.size()));
    return bytes + payload;
}

bool FeedReplyParser::append(const QByteArray& bytes)
{
    if (!m_isDamaged)
        m_buffer.append(bytes);
    return !m_isDamaged;
}

void FeedReplyParser::clear()
{
    *this = {};
}

bool FeedReplyParser::readHeader()
{
    const char* place = m_buffer.constData();
    if (take<quint32>(place) != kReplyMagic || take<quint16>(place) != kVersion)
        return false;
    m_reply = {};
    m_reply.isStale = (take<quint16>(place) & kStaleFlag) != 0;
    m_reply.width = take<quint16>(place);
    m_reply.height = take<quint16>(place);
    m_reply.frame = take<quint64>(place);
    m_reply.timeStamp = std::chrono::nanoseconds(take<qint64>(place));
    m_payloadBytes = take<quint32>(place);
    m_buffer.remove(0, FeedReply::kHeaderBytes);
    if (m_reply.width == 0 || m_reply.height == 0)
        return m_reply.width == m_reply.height && m_payloadBytes == 0;
    const std::uint64_t raw = pictureBytes(m_reply.width, m_reply.height);
    return m_reply.width <= kLargestSide && m_reply.height <= kLargestSide && raw <= kLargestPictureBytes
        && m_payloadBytes <= ::compressBound(static_cast<uLong>(raw)) + 64;
}

bool FeedReplyParser::inflate()
{
    if (m_reply.width == 0)
        return true;
    m_reply.pixels.resize(static_cast<std::size_t>(m_reply.width) * static_cast<std::size_t>(m_reply.height));
    auto size = static_cast<uLongf>(m_reply.pixels.size() * sizeof(std::uint32_t));
    const auto expected = size;
    const int result = ::uncompress(reinterpret_cast<Bytef*>(m_reply.pixels.data()), &size,
                                    reinterpret_cast<const Bytef*>(m_buffer.constData()),
                                    static_cast<uLong>(m_payloadBytes));
    return result == Z_OK && size == expected;
}

std::optional<FeedReply> FeedReplyParser::next()
{
    if (m_isDamaged)
        return std::nullopt;
    if (!m_hasHeader) {
        if (m_buffer.size() < FeedReply::kHeaderBytes)
            return std::nullopt;
        m_hasHeader = true;
        m_isDamaged = !readHeader();
    }
    if (!m_isDamaged && static_cast<quint32>(m_buffer.size()) < m_payloadBytes)
        return std::nullopt;
    m_isDamaged = m_isDamaged || !inflate();
    if (m_isDamaged) {
        m_buffer.clear();
        return std::nullopt;
    }
    m_buffer.remove(0, static_cast<int>(m_payloadBytes));
    m_hasHeader = false;
    return std::move(m_reply);
}

} // namespace Velmora::Feed
