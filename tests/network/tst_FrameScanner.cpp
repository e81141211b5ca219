#include "network/FrameScanner.h"
#include "network/FrameStream.h"

#include "support/ByteByByteScanner.h"
#include "support/Frames.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QBuffer>
#include <QElapsedTimer>

#include <random>

namespace {

constexpr qint64 kLimit = 4096;

/// What a FrameStream makes of the stream when it arrives in pieces of the given sizes, repeated.
QByteArrayList framesInPieces(const QByteArray& bytes, const std::vector<int>& sizes)
{
    QByteArrayList frames;
    FrameStream stream("test", kLimit, 64);
    size_t piece = 0;
    for (int offset = 0; offset < bytes.size();) {
        QByteArray part = bytes.mid(offset, sizes[piece++ % sizes.size()]);
        offset += part.size();
        QBuffer device(&part);
        device.open(QIODevice::ReadOnly);
        stream.appendAll(device);
        stream.consumeFrames([&](FrameScanner& scanner) {
            frames << QByteArray(scanner.frame().constData(), scanner.frame().size());
            return true;
        });
    }
    return frames;
}

constexpr QLatin1String kOversizedClaim{"header torn after its identifier", 32};

} // namespace

class tst_FrameScanner : public WzTest {
    Q_OBJECT

private slots:
    void findsFrames_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<QByteArrayList>("expected");
        const QByteArray a = Frames::raw(0x1013, "first");
        const QByteArray b = Frames::raw(0x1010, QByteArray(300, 'b'));
        const QByteArray empty = Frames::raw(0x102B, "");
        const QByteArray magic = a.left(8);
        const QByteArray torn = Frames::raw(0x1014, a + "more", "XXXX");

        QTest::newRow("two and a half") << a + b + a.left(20) << QByteArrayList{a, b};
        QTest::newRow("empty payload") << empty + empty << QByteArrayList{empty, empty};
        QTest::newRow("stray byte") << "x" + a << QByteArrayList{a};
        QTest::newRow("garbage of many magics") << magic + magic + magic.left(7) + a << QByteArrayList{a};
        QTest::newRow("unknown identifier") << Frames::raw(0x102C, a) << QByteArrayList{a};
        QTest::newRow("frame in a payload with a wrong trailer") << torn + b << QByteArrayList{a, b};
        QTest::newRow("frame in a good payload is payload")
            << Frames::raw(0x1014, a) << QByteArrayList{Frames::raw(0x1014, a)};
        // What follows is read as its length.
        QTest::newRow(kOversizedClaim.data()) << a.left(10) + a << QByteArrayList{a};
        QTest::newRow("frame right at the limit")
            << Frames::raw(0x1013, QByteArray(kLimit - 20, 'y'))
            << QByteArrayList{Frames::raw(0x1013, QByteArray(kLimit - 20, 'y'))};
        QTest::newRow("only garbage") << QByteArray(5000, '\xCA') << QByteArrayList{};
    }
    void findsFrames()
    {
        QFETCH(QByteArray, stream);
        QFETCH(QByteArrayList, expected);
        if (QLatin1String(QTest::currentDataTag()) == kOversizedClaim)
            log().expectError(QStringLiteral("announced on test"));
        QCOMPARE(framesByteByByte(stream, kLimit), expected);
        for (const auto& sizes : std::vector<std::vector<int>>{{1 << 20}, {1}, {15, 1}, {16}, {7, 3, 30}})
            QCOMPARE(framesInPieces(stream, sizes), expected);
    }

    void agreesWithByteByByteOnRandomStreams()
    {
        log().expectError(QStringLiteral("announced on test"));
        std::mt19937 random(20240517);
        const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        for (int round = 0; round < 400; ++round) {
            QByteArray stream;
            for (int part = 0; part < 8; ++part) {
                QByteArray frame =
                    Frames::raw(static_cast<quint16>(0x100F + upTo(30)), QByteArray(upTo(90), 'p'));
                switch (upTo(6)) {
                case 0:
                    frame = frame.mid(upTo(frame.size()));
                    break;
                case 1:
                    frame.truncate(upTo(frame.size()));
                    break;
                case 2:
                    frame[upTo(frame.size())] = static_cast<char>(upTo(256));
                    break;
                case 3:
                    frame.insert(upTo(frame.size()), frame.left(upTo(24)));
                    break;
                default:
                    break;
                }
                stream += frame;
            }
            QCOMPARE(framesInPieces(stream, {1 + upTo(40), 1 + upTo(200)}), framesByteByByte(stream, kLimit));
        }
    }

    void reportsAnOversizedClaimOnceAnEpisode()
    {
        log().expectError(QStringLiteral("announced on test, more than the limit"));
        const QByteArray claim = Frames::header(0x1013, 0xFFFFFFFF);
        const QByteArray frame = Frames::raw(0x1013, "good");
        QCOMPARE(framesInPieces(claim + claim + claim + frame, {5}), QByteArrayList{frame});
        QCOMPARE(log().count(QStringLiteral("more than the limit")), 1);
        QCOMPARE(framesInPieces(claim + frame + claim + frame, {64}).size(), 2);
        QCOMPARE(log().count(QStringLiteral("more than the limit")), 3);
    }

    void handlerMayClearTheStream()
    {
        FrameStream stream("test", kLimit, 64);
        QByteArray bytes = Frames::raw(0x1013, "one") + Frames::raw(0x1014, "two");
        const auto feed = [&] {
            QBuffer device(&bytes);
            device.open(QIODevice::ReadOnly);
            stream.appendAll(device);
        };
        int handled = 0;
        feed();
        stream.consumeFrames([&](FrameScanner&) {
            ++handled;
            stream.clear();
            feed(); // bytes of the next connection, which arrive before the handler returns
            return true;
        });
        QCOMPARE(handled, 1);
        stream.consumeFrames([&](FrameScanner&) {
            ++handled;
            return true;
        });
        QCOMPARE(handled, 3);
    }

    void aLongRestIsNotMovedForAFewBytes()
    {
        // Headers only, each of a frame that ends with a wrong trailer behind 32 MiB of them: one more header
        // lets one more be consumed.
        constexpr int kFrame = 32 * 1024 * 1024;
        constexpr int kSteps = 5000;
        constexpr int kLongestMs = 5000;
        QByteArray header =
            Frames::header(0x1011, kFrame - RawDataPacket::kHeaderSize - RawDataPacket::kTrailerSize);
        FrameStream stream("test", kFrame, 64);
        const auto append = [&](QByteArray bytes) {
            QBuffer device(&bytes);
            device.open(QIODevice::ReadOnly);
            stream.appendAll(device);
            stream.consumeFrames([](FrameScanner&) { return true; });
        };
        append(header.repeated(kFrame / header.size()));
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < kSteps && timer.elapsed() < kLongestMs; ++i)
            append(header);
        QVERIFY(timer.elapsed() < kLongestMs);
    }
};

WZ_TEST_CLASS(tst_FrameScanner)
#include "tst_FrameScanner.moc"
