#include "server/measure/AudioContentDetector.h"
#include "server/measure/DolbyELine.h"
#include "server/measure/MonitorMix.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <cstdint>
#include <vector>

using namespace Velmora::Server;

namespace {

/// One word of a burst, left-justified in 24 bits, as a sample.
float sampleOf(std::uint32_t word, int wordLength)
{
    const auto bits = static_cast<std::int32_t>(word << (32 - wordLength));
    return static_cast<float>(bits >> 8) / 8388608.0F;
}

/// Where a burst begins and how: in both channels of the first pair, or in its right one alone.
struct Burst {
    int wordLength = 20;
    bool isFrameMode = true;
    std::vector<std::uint32_t> words;
};

Burst burstOf(int dataType, int wordLength, std::vector<std::uint32_t> payload = {})
{
    const std::uint32_t a = wordLength == 16 ? 0xF872 : wordLength == 20 ? 0x6F872 : 0x96F872;
    const std::uint32_t b = wordLength == 16 ? 0x4E1F : wordLength == 20 ? 0x54E1F : 0xA54E1F;
    const auto information = static_cast<std::uint32_t>(dataType) << (wordLength - 16);
    Burst burst{wordLength, true, {a, b, information, 0}};
    burst.words.insert(burst.words.end(), payload.begin(), payload.end());
    return burst;
}

constexpr std::size_t kFrames = 24000;

struct Sound {
    Sound()
        : buffer(kFrames)
    {
    }
    void put(const Burst& burst, std::size_t frame)
    {
        for (std::size_t i = 0; i < burst.words.size(); ++i) {
            const std::size_t channel = burst.isFrameMode ? i % 2 : 1;
            const std::size_t at = burst.isFrameMode ? frame + i / 2 : frame + i;
            buffer.plane(channel)[at] = sampleOf(burst.words[i], burst.wordLength);
        }
    }
    /// Reads half a second in blocks of that size.
    void detect(AudioContentDetector& detector, std::size_t blockFrames) const
    {
        const AudioBlock whole = buffer.block(0, 4);
        for (std::size_t done = 0; done < kFrames; done += blockFrames) {
            AudioBlock block = whole;
            for (const float*& plane : block.channels)
                plane = plane ? plane + done : nullptr;
            block.frames = std::min(blockFrames, kFrames - done);
            block.position = done;
            detector.process(block);
        }
    }

    AudioBuffer buffer;
};

QString itemOf(const AudioContentDetector& detector, std::size_t channel)
{
    return detector.contents()[channel].toItem();
}

} // namespace

class tst_AudioContent : public WzTest {
    Q_OBJECT

private slots:
    void burstsAreFound_data()
    {
        QTest::addColumn<int>("dataType");
        QTest::addColumn<int>("wordLength");
        QTest::addColumn<bool>("isFrameMode");
        QTest::addColumn<int>("blockFrames");
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::newRow("AC-3") << 1 << 16 << true << 960 << "data 1 16 -1"
                              << "data 1 16 -1";
        QTest::newRow("E-AC-3, odd blocks") << 16 << 16 << true << 7 << "data 16 16 -1"
                                            << "data 16 16 -1";
        QTest::newRow("24 bits") << 27 << 24 << true << 1000 << "data 27 24 -1"
                                 << "data 27 24 -1";
        QTest::newRow("subframe mode") << 1 << 20 << false << 480 << "silence"
                                       << "data 1 20 -1";
    }
    void burstsAreFound()
    {
        QFETCH(int, dataType);
        QFETCH(int, wordLength);
        QFETCH(bool, isFrameMode);
        QFETCH(int, blockFrames);
        Burst burst = burstOf(dataType, wordLength);
        burst.isFrameMode = isFrameMode;
        Sound sound;
        for (std::size_t frame = 100; frame + 10 < kFrames; frame += 1536)
            sound.put(burst, frame);
        AudioContentDetector detector;
        sound.detect(detector, static_cast<std::size_t>(blockFrames));
        QTEST(itemOf(detector, 0), "left");
        QTEST(itemOf(detector, 1), "right");
        QCOMPARE(itemOf(detector, 2), QStringLiteral("silence"));
        QCOMPARE(itemOf(detector, 4), QStringLiteral("absent"));
    }

    void soundIsNoData()
    {
        Sound sound;
        sound.put(burstOf(1, 16), 23000); // a single one
        std::uint32_t random = 1;
        for (std::size_t i = 0; i < kFrames; ++i) {
            random = random * 1664525U + 1013904223U;
            sound.buffer.plane(2)[i] = sampleOf(random >> 16U, 16);
            sound.buffer.plane(3)[i] = sampleOf(random >> 8U, 24);
        }
        AudioContentDetector detector;
        sound.detect(detector, 960);
        QCOMPARE(itemOf(detector, 2), QStringLiteral("pcm 16"));
        QCOMPARE(itemOf(detector, 3), QStringLiteral("pcm 24"));
        QVERIFY(!detector.contents()[0].isData());
        // Data that has ended is none any more; what is no number is silence.
        Sound later;
        later.buffer.plane(2)[5] = std::numeric_limits<float>::quiet_NaN();
        later.detect(detector, 960);
        later.detect(detector, 960);
        QCOMPARE(itemOf(detector, 2), QStringLiteral("silence"));
    }

    void dolbyE_data()
    {
        using Words = std::vector<std::uint32_t>;
        QTest::addColumn<int>("wordLength");
        QTest::addColumn<Words>("payload");
        QTest::addColumn<int>("programConfig");
        // The programme configuration stands in the bits 14 to 19 of what follows sync word and key.
        QTest::newRow("20 bits") << 20 << Words{0x0788E, 0b0110'0000'0110'0100'0011} << 3;
        QTest::newRow("20 bits, key") << 20 << Words{0x0788F, 0x12345, 0x12345 ^ 0x0000B} << 11;
        QTest::newRow("16 bits") << 16 << Words{0x078E, 0b01, 0b0110'0000'0000'0000} << 22;
        QTest::newRow("24 bits") << 24 << Words{0x07888E, 10 << 4} << 10;
        QTest::newRow("another sync word") << 20 << Words{0x0788A, 3} << -1;
    }
    void dolbyE()
    {
        QFETCH(int, wordLength);
        using Words = std::vector<std::uint32_t>;
        QFETCH(Words, payload);
        QFETCH(int, programConfig);
        Sound sound;
        for (std::size_t frame = 36; frame + 10 < kFrames; frame += 1920)
            sound.put(burstOf(28, wordLength, payload), frame);
        AudioContentDetector detector;
        sound.detect(detector, 960);
        QCOMPARE(itemOf(detector, 0), QStringLiteral("data 28 %1 %2").arg(wordLength).arg(programConfig));
        QCOMPARE(*detector.dolbyEPosition(0) % 1920, std::uint64_t{36});
        QVERIFY(!detector.dolbyEPosition(1));
        // 36 samples are 750 us: 21.09 lines of 1080i25.
        QCOMPARE(
            *DolbyELine::lineAt(*detector.dolbyEPosition(0),
                                {.width = 1920, .height = 1080, .rateNumerator = 25, .interlaced = true}),
            22);
    }

    void lines_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("numerator");
        QTest::addColumn<int>("denominator");
        QTest::addColumn<bool>("interlaced");
        QTest::addColumn<quint64>("position");
        QTest::addColumn<int>("line"); // 0 for none
        QTest::addColumn<int>("ideal");
        QTest::newRow("625i25, first") << 576 << 25 << 1 << true << quint64{1920} << 1 << 12;
        QTest::newRow("625i25, last") << 576 << 25 << 1 << true << quint64{1919} << 625 << 12;
        QTest::newRow("1080i25") << 1080 << 25 << 1 << true << quint64{960} << 563 << 21;
        QTest::newRow("1080i29.97, five frames") << 1080 << 30000 << 1001 << true << quint64{8008} << 1 << 24;
        QTest::newRow("525i29.97") << 486 << 30000 << 1001 << true << quint64{8008 + 33} << 11 << 14;
        QTest::newRow("1080p50") << 1080 << 50 << 1 << false << quint64{480} << 563 << 43;
        QTest::newRow("720p59.94") << 720 << 60000 << 1001 << false << quint64{4004} << 1 << 32;
        QTest::newRow("after a year")
            << 1080 << 25 << 1 << true << quint64{48000} * 86400 * 365 + 1920 << 1 << 21;
        QTest::newRow("no raster") << 360 << 25 << 1 << false << quint64{0} << 0 << 0;
    }
    void lines()
    {
        QFETCH(int, height);
        QFETCH(int, numerator);
        QFETCH(int, denominator);
        QFETCH(bool, interlaced);
        QFETCH(quint64, position);
        VideoFormat format;
        format.height = height;
        format.rateNumerator = numerator;
        format.rateDenominator = denominator;
        format.interlaced = interlaced;
        QTEST(DolbyELine::lineAt(position, format).value_or(0), "line");
        QTEST(DolbyELine::idealLine(format).value_or(0), "ideal");
    }

    void mixes_data()
    {
        QTest::addColumn<unsigned>("pair");
        QTest::addColumn<unsigned>("solo");
        QTest::addColumn<unsigned>("left");
        QTest::addColumn<unsigned>("right");
        QTest::addColumn<float>("heardLeft");
        QTest::addColumn<float>("heardRight");
        // The first four channels carry 1, 2, 4 and 8 sixteenths; there are no others.
        QTest::newRow("pair") << 2U << 0U << 0U << 0U << 4.0F << 8.0F;
        QTest::newRow("absent pair") << 8U << 0U << 0U << 0U << 0.0F << 0.0F;
        QTest::newRow("solo over all") << 1U << 4U << 1U << 1U << 8.0F << 8.0F;
        QTest::newRow("mix on one side") << 1U << 0U << 0b1001U << 0U << 4.5F << 2.0F;
        QTest::newRow("absent take no part") << 1U << 0U << 0xFFF0U << 0x8002U << 0.0F << 2.0F;
    }
    void mixes()
    {
        QFETCH(unsigned, pair);
        QFETCH(unsigned, solo);
        QFETCH(unsigned, left);
        QFETCH(unsigned, right);
        AudioBuffer buffer(2);
        for (std::size_t channel = 0; channel < 4; ++channel)
            std::fill_n(buffer.plane(channel), 2, static_cast<float>(1U << channel) / 16.0F);
        std::vector<float> stereo{9, 9, 9, 9, 9, 9};
        MonitorMix{pair, solo, {left, right}}.mix(buffer.block(0, 4), stereo);
        QCOMPARE(stereo.size(), std::size_t{4});
        QTEST(stereo[2] * 16, "heardLeft");
        QTEST(stereo[3] * 16, "heardRight");
    }
};

WZ_TEST_CLASS(tst_AudioContent)
#include "tst_AudioContent.moc"
