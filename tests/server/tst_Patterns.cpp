#include "server/sources/AudioBlock.h"
#include "server/sources/PatternCatalogue.h"
#include "server/sources/PatternGenerator.h"
#include "server/sources/VideoFormats.h"
#include "server/sources/patterns/FrameCounterStrip.h"
#include "server/sources/patterns/LipSync.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <algorithm>
#include <set>

using namespace Velmora::Server;
using namespace Velmora::Sdi::PayloadId;

Q_DECLARE_METATYPE(VideoFormat)

namespace {

VideoFormat formatOf(int width, int height, Colourimetry colourimetry, SampleStructure sampling,
                     BitDepth depth, TransferCurve transfer = TransferCurve::SdrTv)
{
    return {.width = width,
            .height = height,
            .rateNumerator = 50,
            .sampling = sampling,
            .depth = depth,
            .colourimetry = colourimetry,
            .transfer = transfer};
}

constexpr auto k422 = SampleStructure::YCbCr422;
constexpr auto k444 = SampleStructure::YCbCr444;
constexpr auto kRgb = SampleStructure::Rgb444;

/// The codes at a pixel; with halved colour differences those that belong to it.
QString codesAt(const VideoFrame& frame, int x, int y)
{
    QStringList codes;
    for (int plane = 0; plane < 3; ++plane) {
        const VideoPlane& samples = frame.planes[static_cast<std::size_t>(plane)];
        codes << QString::number(samples.line(y)[samples.width < frame.format.width ? x / 2 : x]);
    }
    return codes.join(QLatin1Char(','));
}

PatternGenerator generator(const char* name, const VideoFormat& format)
{
    return {PatternCatalogue::make(name), format};
}

/// Codes of the columns that @p places name, in pixels of 1920, at a line of 1080.
QString codesOfColumns(const VideoFrame& frame, const QList<int>& places, int line)
{
    QStringList codes;
    for (const int x : places)
        codes << codesAt(frame, x * frame.format.width / 1920, line * frame.format.height / 1080);
    return codes.join(QLatin1Char(' '));
}

const QList<int> kEighths{100, 340, 580, 820, 1060, 1300, 1540, 1780};

} // namespace

/// The code values of test patterns, by tables of what is published for them.
class tst_Patterns : public WzTest {
    Q_OBJECT

private slots:
    void barsHaveTheirCodes_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<VideoFormat>("format");
        QTest::addColumn<int>("line");
        QTest::addColumn<QList<int>>("places");
        QTest::addColumn<QString>("codes");
        const auto row = [](const char* name, const char* pattern, const VideoFormat& format, int line,
                            const QList<int>& places, const char* codes) {
            QTest::newRow(name) << QString::fromLatin1(pattern) << format << line << places
                                << QString::fromLatin1(codes);
        };
        const auto hd = [](SampleStructure sampling, BitDepth depth,
                           TransferCurve transfer = TransferCurve::SdrTv) {
            const bool isHdr = transfer != TransferCurve::SdrTv;
            return formatOf(1920, 1080, isHdr ? Colourimetry::Rec2020 : Colourimetry::Rec709, sampling, depth,
                            transfer);
        };
        const auto sd = formatOf(720, 576, Colourimetry::Rec601, k422, BitDepth::Bits10);
        const auto uhd = formatOf(3840, 2160, Colourimetry::Rec2020, k422, BitDepth::Bits10);
        const auto hdTenBits = hd(k422, BitDepth::Bits10);

        row("100 % 709", "bars-100", hdTenBits, 0, kEighths,
            "940,512,512 877,64,553 754,615,64 691,167,105 313,857,919 250,409,960 127,960,471 64,512,512");
        row("100 % 601", "bars-100", sd, 1079, kEighths,
            "940,512,512 840,64,585 678,663,64 578,215,137 426,809,887 326,361,960 164,960,439 64,512,512");
        row("100 % 2020", "bars-100", uhd, 500, kEighths,
            "940,512,512 888,64,548 710,637,64 658,189,100 346,835,924 294,387,960 116,960,476 64,512,512");
        row("75 % 709", "bars-75", hdTenBits, 0, kEighths,
            "721,512,512 674,176,543 581,589,176 534,253,207 251,771,817 204,435,848 111,848,481 64,512,512");
        row("75 % 2020", "bars-75", uhd, 0, kEighths,
            "721,512,512 682,176,539 548,606,176 509,270,203 276,754,821 237,418,848 103,848,485 64,512,512");
        row("EBU 601", "ebu-bars", sd, 0, kEighths,
            "940,512,512 646,176,567 525,625,176 450,289,231 335,735,793 260,399,848 139,848,457 64,512,512");
        row("EBU 709, 8 bits", "ebu-bars", hd(k422, BitDepth::Bits8), 0, kEighths,
            "235,128,128 168,44,136 145,147,44 133,63,52 63,193,204 51,109,212 28,212,120 16,128,128");
        row("100 % RGB, 12 bits", "bars-100", hd(kRgb, BitDepth::Bits12), 0, kEighths,
            "3760,3760,3760 3760,3760,256 256,3760,3760 256,3760,256 3760,256,3760 3760,256,256 "
            "256,256,3760 256,256,256");
        row("75 % RGB, full range", "bars-75", hd(kRgb, BitDepth::Bits10FullRange), 0, kEighths,
            "767,767,767 767,767,0 0,767,767 0,767,0 767,0,767 767,0,0 0,0,767 0,0,0");
        row("100 % 709, full range", "bars-100", hd(k444, BitDepth::Bits10FullRange), 0, {100, 1300, 1540},
            "1023,512,512 217,395,1023 74,1023,465");

        // SMPTE RP 219-1: on either side of every edge.
        row("SMPTE, bars", "smpte-bars", hdTenBits, 629,
            {239, 240, 444, 446, 650, 652, 856, 858, 1062, 1064, 1268, 1270, 1474, 1476, 1679, 1680},
            "414,512,512 721,512,512 721,512,512 674,176,543 674,176,543 581,589,176 581,589,176 "
            "534,253,207 534,253,207 251,771,817 251,771,817 204,435,848 204,435,848 111,848,481 "
            "111,848,481 414,512,512");
        row("SMPTE, second row", "smpte-bars", hdTenBits, 630, {0, 239, 240, 1679, 1680},
            "754,615,64 754,615,64 721,512,512 721,512,512 127,960,471");
        row("SMPTE, third row", "smpte-bars", hdTenBits, 720, {239, 240, 445, 1474, 1475, 1680},
            "877,64,553 64,512,512 64,512,512 940,512,512 940,512,512 250,409,960");
        row("SMPTE, fourth row", "smpte-bars", hdTenBits, 810,
            {239, 240, 549, 960, 1131, 1200, 1268, 1337, 1405, 1474, 1680},
            "195,512,512 64,512,512 940,512,512 64,512,512 46,512,512 64,512,512 82,512,512 64,512,512 "
            "99,512,512 64,512,512 195,512,512");
        row("SMPTE, 601", "smpte-bars", sd, 100, {100, 340, 550}, "414,512,512 721,512,512 646,176,567");

        // ITU-R BT.2111, R'G'B'.
        const QList<int> stair{0,    240,  446,  549,  652,  755,  858, 960,
                               1062, 1165, 1268, 1371, 1474, 1577, 1680};
        const QList<int> small{0, 80, 160, 1680, 1760, 1840};
        const QList<int> pluge{240, 376, 446, 514, 584, 652, 722, 960, 1397, 1398};
        const auto hlg = hd(kRgb, BitDepth::Bits10, TransferCurve::Hlg);
        const auto pq = hd(kRgb, BitDepth::Bits10, TransferCurve::Pq);
        const auto pqFull = hd(kRgb, BitDepth::Bits10FullRange, TransferCurve::Pq);
        row("HLG, 100 %", "hdr-bars", hlg, 89, {239, 240, 446, 1679, 1680},
            "414,414,414 940,940,940 940,940,64 64,64,940 414,414,414");
        row("HLG, bars", "hdr-bars", hlg, 90, {240, 446, 652, 858, 1062, 1268, 1474},
            "721,721,721 721,721,64 64,721,721 64,721,64 721,64,721 721,64,64 64,64,721");
        row("HLG, stair", "hdr-bars", hlg, 630, stair,
            gray({721, 4, 64, 152, 239, 327, 414, 502, 590, 677, 765, 852, 940, 1019, 721}));
        row("HLG, ramp", "hdr-bars", hlg, 720, {0, 798, 799, 1812, 1813, 1919},
            gray({4, 4, 5, 1018, 1019, 1019}));
        row("HLG, 709", "hdr-bars", hlg, 810, small,
            "713,719,316 538,709,718 512,706,296 651,286,705 639,269,164 227,147,702");
        row("HLG, PLUGE", "hdr-bars", hlg, 1079, pluge, gray({64, 48, 64, 80, 64, 99, 64, 721, 721, 64}));
        row("HLG, YCbCr", "hdr-bars", hd(k422, BitDepth::Bits10, TransferCurve::Hlg), 90, {240, 446},
            "721,512,512 682,176,539");
        row("PQ, bars", "hdr-bars", pq, 629, {0, 240, 446, 1474},
            "414,414,414 572,572,572 572,572,64 64,64,572");
        row("PQ, 709", "hdr-bars", pq, 810, small,
            "568,571,381 484,566,571 474,564,368 536,361,564 530,350,256 317,236,562");
        row("PQ full, stair", "hdr-bars", pqFull, 719, stair,
            gray({593, 0, 0, 102, 205, 307, 409, 512, 614, 716, 818, 921, 1023, 1023, 593}));
        row("PQ full, ramp", "hdr-bars", pqFull, 720, {0, 790, 791, 1812, 1813}, gray({0, 0, 1, 1022, 1023}));
        row("PQ full, 709", "hdr-bars", pqFull, 810, small,
            "589,592,370 491,586,592 478,584,355 551,347,584 544,334,225 296,201,582");
        row("PQ full, PLUGE", "hdr-bars", pqFull, 810, pluge, gray({0, 0, 0, 20, 0, 41, 0, 593, 593, 0}));

        row("ramp", "ramp", hdTenBits, 500, {0, 480, 1919}, "64,512,512 283,512,512 940,512,512");
        row("ramp, S-Log3 12 bits", "ramp", hd(k444, BitDepth::Bits12, TransferCurve::SLog3), 500, {0, 1919},
            "256,2048,2048 3760,2048,2048");
        row("check field, equaliser", "check-field", hdTenBits, 539, {0, 1919}, "408,768,768 408,768,768");
        row("check field, PLL", "check-field", sd, 540, {0, 1919}, "272,512,512 272,512,512");
        row("black", "black", hd(k422, BitDepth::Bits12), 1079, {0, 1919}, "256,2048,2048 256,2048,2048");
        row("zone plate, centre", "zone-plate", hdTenBits, 540, {960}, "940,512,512");
    }
    void barsHaveTheirCodes()
    {
        QFETCH(QString, pattern);
        QFETCH(VideoFormat, format);
        QFETCH(int, line);
        QFETCH(QList<int>, places);
        QFETCH(QString, codes);
        auto source = generator(qPrintable(pattern), format);
        QCOMPARE(codesOfColumns(*source.next(), places, line), codes);
        // A picture that stands still is the same one.
        QCOMPARE(codesOfColumns(*source.next(), {960}, line), codesOfColumns(*source.next(), {960}, line));
    }

    void everyPatternFillsEveryPicture_data()
    {
        QTest::addColumn<VideoFormat>("format");
        QTest::newRow("525") << formatOf(720, 486, Colourimetry::Rec601, k422, BitDepth::Bits8);
        QTest::newRow("720p") << formatOf(1280, 720, Colourimetry::Rec709, kRgb, BitDepth::Bits10);
        QTest::newRow("2160p") << formatOf(4096, 2160, Colourimetry::Rec2020, SampleStructure::YCbCrA4444,
                                           BitDepth::Bits12FullRange, TransferCurve::Pq);
    }
    /// In narrow range no sample has code 0, which is what a new buffer has.
    void everyPatternFillsEveryPicture()
    {
        QFETCH(VideoFormat, format);
        for (const auto& entry : PatternCatalogue::entries()) {
            auto source = generator(entry.name, format);
            for (int number = 0; number < 3; ++number) {
                const VideoFrame& frame = *source.next();
                QCOMPARE(frame.number, std::uint64_t(number));
                const bool isNarrow = !VideoFormats::isFullRange(format.depth);
                for (const VideoPlane& plane : frame.planes) {
                    for (int y = 0; plane.samples && y < plane.height; ++y) {
                        const auto* const line = plane.line(y);
                        const auto [low, high] = std::minmax_element(line, line + plane.width);
                        QVERIFY2(*low > 0 || !isNarrow, entry.name);
                        QVERIFY2(*high < 1 << VideoFormats::bitsOf(format.depth), entry.name);
                    }
                }
            }
        }
    }

    void theSweepHasEveryCode()
    {
        auto source =
            generator("full-range-sweep", formatOf(1920, 1080, Colourimetry::Rec709, k444, BitDepth::Bits10));
        const VideoFrame& frame = *source.next();
        for (std::size_t plane = 0; plane < 3; ++plane) {
            const auto* const line = frame.planes[plane].line(180 + 360 * int(plane));
            const std::set<int> codes(line, line + 1920);
            QCOMPARE(int(codes.size()), 1016);
            QCOMPARE(*codes.begin(), 4);
            QCOMPARE(*codes.rbegin(), 1019);
            QCOMPARE(int(*frame.planes[(plane + 1) % 3].line(180 + 360 * int(plane))), 512);
        }
    }

    void theCheckFieldAlternates()
    {
        auto source =
            generator("check-field", formatOf(1920, 1080, Colourimetry::Rec709, k422, BitDepth::Bits10));
        QStringList first;
        for (int i = 0; i < 3; ++i)
            first << codesAt(*source.next(), 0, 0);
        QCOMPARE(first.join(QLatin1Char(' ')), QStringLiteral("408,768,768 400,768,768 408,768,768"));
    }

    void theBoxMovesAndItsFramesAreNumbered_data()
    {
        QTest::addColumn<bool>("interlaced");
        QTest::addColumn<bool>("topFieldFirst");
        QTest::newRow("progressive") << false << true;
        QTest::newRow("interlaced") << true << true;
        QTest::newRow("525") << true << false;
    }
    void theBoxMovesAndItsFramesAreNumbered()
    {
        QFETCH(bool, interlaced);
        QFETCH(bool, topFieldFirst);
        auto format = formatOf(720, 486, Colourimetry::Rec601, k422, BitDepth::Bits10);
        format.interlaced = interlaced;
        format.topFieldFirst = topFieldFirst;
        auto source = generator("moving-box", format);
        const auto boxStart = [](const VideoFrame& frame, int y) {
            const auto* const line = frame.planes[0].line(y);
            return std::find(line, line + 720, 940) - line;
        };
        std::ptrdiff_t last = -1;
        for (std::uint32_t number = 0; number < 300; ++number) {
            const VideoFrame& frame = *source.next();
            QCOMPARE(FrameCounterStrip::read(frame), std::optional(number));
            QCOMPARE(frame.timeStamp, std::chrono::milliseconds(20 * number));
            const auto* const line = frame.planes[0].line(243);
            QCOMPARE(int(std::count(line, line + 720, 940)), 80);
            const auto even = boxStart(frame, 242);
            const auto odd = boxStart(frame, 243);
            const bool hasWrapped = std::max(even, odd) < last || std::abs(even - odd) > 80;
            QVERIFY(hasWrapped
                    || (interlaced && topFieldFirst ? odd > even && even > last
                            : interlaced            ? even > odd && odd > last
                                                    : even == odd && even > last));
            last = std::max(even, odd);
        }
    }

    void theFlashHasItsClick_data()
    {
        QTest::addColumn<int>("numerator");
        QTest::addColumn<int>("denominator");
        QTest::newRow("25") << 25 << 1;
        QTest::newRow("59.94") << 60000 << 1001;
        QTest::newRow("23.98") << 24000 << 1001;
    }
    /// The sound differs from silence in the samples of white frames and in no others.
    void theFlashHasItsClick()
    {
        QFETCH(int, numerator);
        QFETCH(int, denominator);
        auto format = formatOf(720, 486, Colourimetry::Rec601, k422, BitDepth::Bits10);
        format.rateNumerator = numerator;
        format.rateDenominator = denominator;
        PatternGenerator pictures(std::make_unique<LipSync>(), format);
        ClickTrack sound(format);
        int flashes = 0;
        for (std::uint64_t number = 0; number < 130; ++number) {
            const auto* const line = pictures.next()->planes[0].line(0);
            const bool isWhite = std::count(line, line + 720, 940) == 720;
            flashes += isWhite;
            // A sample belongs to the frame in which it begins.
            const std::uint64_t end =
                ((number + 1) * 48000 * std::uint64_t(denominator) + std::uint64_t(numerator) - 1)
                / std::uint64_t(numerator);
            AudioBuffer samples(std::size_t(end - sound.position()));
            const AudioBlock block = sound.read(samples.planes());
            const auto isLoud = [](float sample) { return std::abs(sample) > 0.01F; };
            const auto loud = std::count_if(block.channels[15], block.channels[15] + block.frames, isLoud);
            QCOMPARE(loud > 0, isWhite);
            if (isWhite)
                QVERIFY(loud > std::ptrdiff_t(block.frames) * 8 / 10);
        }
        QCOMPARE(flashes, numerator == 24000 ? 6 : numerator == 25 ? 6 : 3);
    }

private:
    static const char* gray(const QList<int>& levels)
    {
        static QByteArrayList kept;
        QStringList codes;
        for (const int level : levels)
            codes << QStringLiteral("%1,%1,%1").arg(level);
        kept << codes.join(QLatin1Char(' ')).toLatin1();
        return kept.last().constData();
    }
};

WZ_TEST_CLASS(tst_Patterns)
#include "tst_Patterns.moc"
