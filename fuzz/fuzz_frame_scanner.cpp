// Any byte stream, cut into pieces of sizes that the input chooses, yields the frames that stepping byte by
// byte finds.

#include "Check.h"
#include "network/FrameStream.h"
#include "support/ByteByByteScanner.h"

#include <QBuffer>

#include <cstdint>

namespace {

constexpr qint64 kFrameSizeLimit = 4096;
constexpr size_t kSizesLength = 4;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < kSizesLength)
        return 0;
    const uint8_t* const pieceSizes = data;
    const QByteArray bytes(reinterpret_cast<const char*>(data + kSizesLength),
                           static_cast<int>(size - kSizesLength));

    QByteArrayList frames;
    FrameStream stream("fuzz", kFrameSizeLimit, 64);
    int offset = 0;
    for (size_t piece = 0; offset < bytes.size(); ++piece) {
        QByteArray part = bytes.mid(offset, 1 + pieceSizes[piece % kSizesLength]);
        offset += part.size();
        QBuffer device(&part);
        device.open(QIODevice::ReadOnly);
        stream.appendAll(device);
        stream.consumeFrames([&](FrameScanner& scanner) {
            frames << QByteArray(scanner.frame().constData(), scanner.frame().size());
            return true;
        });
    }
    FUZZ_CHECK(frames == framesByteByByte(bytes, kFrameSizeLimit));
    return 0;
}
