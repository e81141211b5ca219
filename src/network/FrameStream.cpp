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
    dropConsumed(m_buffer.size());
}

void FrameStream::appendAll(QIODevice& device)
{
    while (device.bytesAvailable() > 0) {
        const auto read = [&](char* data, qint64 maxSize) { return device.read(data, maxSize); };
        if (append(device.bytesAvailable(), read) <= 0)
            return;
    }
}

void FrameStream::dropConsumed(int size)
{
    if (size < m_buffer.size()) {
        m_buffer.remove(0, size);
    } else if (m_buffer.capacity() > kCapacityToKeep) {
        m_buffer = QByteArray();
        m_buffer.reserve(m_reservedBytes);
    } else {
        m_buffer.resize(0);
    }
}
