#pragma once

#include "network/RawDataPacket.h"

#include <QByteArray>

/// Cuts whole frames out of a byte stream, in place, and finds the next frame after anything else.
///
/// The one scanner of TCP, UDP and tests. Bytes that begin no frame are skipped as if one by one; a frame
/// whose trailer is wrong loses its header only, so that a frame within its payload is found. A frame
/// announced larger than the limit is not waited for: one log line an episode, and the search goes on behind
/// its first byte, since the claim may be the torn remainder of a header with a good frame right behind it.
///
/// Usage: begin() with the bytes received and not consumed yet, next() until it returns false, then drop the
/// first consumed() bytes and keep the rest for the next begin().
class FrameScanner {
public:
    /// @p frameSizeLimit is the size of the largest frame waited for, in bytes, header and trailer included.
    /// @p streamName stands in the log line of a frame beyond it.
    FrameScanner(const char* streamName, qint64 frameSizeLimit);

    /// Looks at @p size bytes at @p data; they must stay until the last call of next() and frame().
    void begin(const char* data, qint64 size);
    /// Steps to the next whole frame. False when the bytes left hold none.
    bool next();
    /// Bytes, from the start, that are done with: everything up to the end of the frame found, or to the
    /// start of what may become one.
    qint64 consumed() const { return m_offset; }

    const RawDataPacket::Header& header() const { return m_header; }
    /// The whole frame found, as a view of the bytes given to begin(). Copies share the view: take what is
    /// needed out of it before they go.
    const QByteArray& frame();

private:
    bool isOversize();
    bool resynchronise(qint64 from);

    const char* m_streamName;
    qint64 m_frameSizeLimit;
    const char* m_data = nullptr;
    qint64 m_size = 0;
    qint64 m_offset = 0;
    qint64 m_frameStart = 0;
    RawDataPacket::Header m_header;
    QByteArray m_view;
    bool m_oversizeReported = false;
};
