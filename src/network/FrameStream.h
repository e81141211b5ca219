#pragma once

#include "network/FrameScanner.h"

#include <QByteArray>

class QIODevice;

/// The bytes received on one transport and not consumed yet, and the scanner that cuts frames out of them.
///
/// Whoever handles a frame may do anything meanwhile: clear() the stream, append to it, consume again,
/// destroy it.
class FrameStream {
public:
    FrameStream(const char* name, qint64 frameSizeLimit, int reservedBytes);

    /// Forgets all bytes, and ends a consumeFrames() that is under way.
    void clear();

    /// Appends everything that @p device has. Returns whether that was anything.
    bool appendAll(QIODevice& device);
    /// Appends what @p read puts into the @p maxSize bytes that it is given; it returns how many, or -1.
    template<typename Read>
    qint64 append(qint64 maxSize, Read&& read);

    /// Calls @p handle with the scanner, which stands on a frame, for each whole frame in order, then drops
    /// the consumed bytes. The handler returns false when this stream is gone and must not be touched any
    /// more.
    template<typename Handle>
    void consumeFrames(Handle&& handle);

private:
    void dropConsumed(int size);

    QByteArray m_buffer;
    int m_start = 0; ///< place of the first byte that is not consumed
    FrameScanner m_scanner;
    int m_reservedBytes;
    unsigned m_generation = 0; ///< counts clear(), so that a loop under way notices it
    bool m_consuming = false;
};

template<typename Read>
qint64 FrameStream::append(qint64 maxSize, Read&& read)
{
    const int size = m_buffer.size();
    m_buffer.resize(size + static_cast<int>(maxSize));
    const qint64 got = read(m_buffer.data() + size, maxSize);
    m_buffer.resize(size + static_cast<int>(qMax<qint64>(got, 0)));
    return got;
}

template<typename Handle>
void FrameStream::consumeFrames(Handle&& handle)
{
    if (m_consuming)
        return;
    m_consuming = true;
    const unsigned generation = m_generation;
    bool grewMeanwhile = false;
    do {
        int scanned = 0;
        {
            const QByteArray held =
                m_buffer; // keeps the bytes in place, whatever a handler does to the buffer
            scanned = held.size();
            m_scanner.begin(held.constData() + m_start, scanned - m_start);
            while (m_scanner.next()) {
                if (!handle(m_scanner) || m_generation != generation)
                    return;
            }
        }
        grewMeanwhile = m_buffer.size() > scanned;
        dropConsumed(static_cast<int>(m_scanner.consumed()));
    } while (grewMeanwhile);
    m_consuming = false;
}
