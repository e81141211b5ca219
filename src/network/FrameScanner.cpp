#include "network/FrameScanner.h"

#include "logging/LogThrottle.h"

#include <QtEndian>

#include <cstring>
#include <utility>

using Velmora::LogThrottle;

FrameScanner::FrameScanner(const char* streamName, qint64 frameSizeLimit)
    : m_streamName(streamName)
    , m_frameSizeLimit(frameSizeLimit)
{
}

void FrameScanner::begin(const char* data, qint64 size)
{
    m_data = data;
    m_size = size;
    m_offset = 0;
}

bool FrameScanner::next()
{
    while (m_size - m_offset >= RawDataPacket::kHeaderSize) {
        const qint64 remaining = m_size - m_offset;
        m_header = RawDataPacket::peekHeader(m_data + m_offset, remaining);
        if (m_header.packetIdentifier == RawDataPacket::PID_INVALID || isOversize()) {
            if (!resynchronise(m_offset + 1))
                return false;
            continue;
        }
        if (m_header.packetIdentifier == RawDataPacket::PID_INCOMPLETE)
            return false;

        const char* const trailer = m_data + m_offset + RawDataPacket::kHeaderSize + m_header.payloadSize;
        if (std::memcmp(trailer, RawDataPacket::kTrailer, RawDataPacket::kTrailerSize) != 0) {
            m_offset += RawDataPacket::kHeaderSize;
            continue;
        }
        m_frameStart = m_offset;
        m_offset += m_header.frameSize();
        m_oversizeReported = false;
        return true;
    }
    return false;
}

/// Whether the frame announced is too large to wait for, which is logged once an episode.
bool FrameScanner::isOversize()
{
    if (m_header.frameSize() <= m_frameSizeLimit)
        return false;
    if (!std::exchange(m_oversizeReported, true)) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err,
                     "NetworkConnection ERROR frame of {} bytes announced on {}, more than the limit of {}: "
                     "resynchronising",
                     m_header.frameSize(), m_streamName, m_frameSizeLimit);
    }
    return true;
}

const QByteArray& FrameScanner::frame()
{
    m_view.setRawData(m_data + m_frameStart, static_cast<uint>(m_header.frameSize()));
    return m_view;
}

/// Moves on to the next magic at or behind @p from. Without one in reach of a whole header, moves to the
/// first place where a header could still begin, which is where stepping byte by byte would end.
bool FrameScanner::resynchronise(qint64 from)
{
    static const auto magic = qToBigEndian(RawDataPacket::kMagic);
    const qint64 lastStart = m_size - RawDataPacket::kHeaderSize;
    if (from <= lastStart) {
        // A magic that starts at lastStart ends sizeof(magic) bytes later.
        const auto reach = static_cast<size_t>(lastStart - from) + sizeof(magic);
        if (const void* found = memmem(m_data + from, reach, &magic, sizeof(magic))) {
            m_offset = static_cast<const char*>(found) - m_data;
            return true;
        }
    }
    m_offset = lastStart + 1;
    return false;
}
