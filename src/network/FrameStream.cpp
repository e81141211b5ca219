#include "network/FrameStream.h"

#include <QIODevice>

namespace {

/// A buffer that one large frame has stretched beyond this is given back when it runs empty.
constexpr int kCapacityToKeep = 1024 * 1024;

} // namespace

FrameStream::FrameStream(const char* name, qint64 frameSizeLimit, int reservedBytes)
    : m_scanner(name, frameSizeLimit)
    , m_reservedBytes(reservedBytes)
{
    m_buffer.reserve(reservedBytes);
}

void FrameStream::clear()
{
    ++m_generation;
    m_consuming = false;
    dropConsumed(m_buffer.size() - m_start);
}

bool FrameStream::appendAll(QIODevice& device)
{
    bool appended = false;
    while (device.bytesAvailable() > 0) {
        const auto read = [&](char* data, qint64 maxSize) { return device.read(data, maxSize); };
        if (append(device.bytesAvailable(), read) <= 0)
            break;
        appended = true;
    }
    return appended;
}

void FrameStream::dropConsumed(int size)
{
    m_start += size;
    const int rest = m_buffer.size() - m_start;
    if (rest > 0) {
        // A long rest stays where it is until as much has been consumed: peers that let a few bytes at a time
        // be consumed in front of it would have it moved each time.
        if (m_start >= rest) {
            m_buffer.remove(0, m_start);
            m_start = 0;
        }
        return;
    }
    m_start = 0;
    if (m_buffer.capacity() > kCapacityToKeep) {
        m_buffer = QByteArray();
        m_buffer.reserve(m_reservedBytes);
    } else {
        m_buffer.resize(0);
    }
}
