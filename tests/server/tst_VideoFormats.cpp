#include "server/sources/VideoFormats.h"
#include "types/sdi/SupportedVideoStandards.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <set>

using namespace Velmora::Server;
using namespace Velmora::Sdi::PayloadId;

Q_DECLARE_METATYPE(VideoFormat)

class tst_VideoFormats : public WzTest {
    Q_OBJECT

private slots:
    /// The pictures of every standard that is generated can be made, but for the components that are left
    /// out, and find a standard again that carries just such pictures.
    void standardsComeBack()
    {
        const Velmora::Sdi::SupportedVideoStandards supported;
        std::set<QString> leftOut;
        int known = 0;
        for (const auto* standard : supported.getSupportedAnalyserStandards()) {
            const auto format = VideoFormats::formatOf(*standard);
            if (!format) {
                leftOut.insert(standard->getStandardAsComponents().sampling);
                continue;
            }
            // No single link carries 4320 lines; X'Y'Z' and the like are left out.
            if (format->height > 2160)
                continue;
            const auto found = VideoFormats::standardOf(*format);
            QVERIFY2(found, qPrintable(standard->getStandardAsShortText()));
            QCOMPARE(VideoFormats::toText(*VideoFormats::formatOf(*found)), VideoFormats::toText(*format));
            ++known;
        }
        QVERIFY(known > 1000);
        const std::set<QString> expected{QStringLiteral("YCbCr:420"), QStringLiteral("X'Y'Z':444"),
                                         QStringLiteral("YCbCrD:4224"), QStringLiteral("YCbCrD:4444"),
                                         QStringLiteral("RGBD:4444")};
        QCOMPARE(leftOut, expected);
    }

    void picturesOfFilesHaveStandards_data()
    {
        QTest::addColumn<VideoFormat>("format");
        QTest::addColumn<QString>("standard");
        const auto row = [](const char* name, const VideoFormat& format, const char* standard) {
            QTest::newRow(name) << format << QString::fromLatin1(standard);
        };
        const VideoFormat hd{.width = 1920, .height = 1080, .rateNumerator = 25};
        VideoFormat format = hd;
        row("1080p25", format, "1920x1080p25 YCbCr:422:10 1.5G Rec.709");
        format.interlaced = true;
        format.topFieldFirst = false;
        row("1080i50, other order", format, "1920x1080i50 YCbCr:422:10 1.5G Rec.709");
        format = hd;
        format.depth = BitDepth::Bits8;
        row("8 bits", format, "1920x1080p25 YCbCr:422:8 1.5G Rec.709");
        format.rateNumerator = 50;
        row("8 bits where there is no code for it", format, "1920x1080p50 YCbCr:422:10 3G A Rec.709");
        format.rateNumerator = 60000;
        format.rateDenominator = 1001;
        row("59.94", format, "1920x1080p59.94 YCbCr:422:10 3G A Rec.709");
        format.rateNumerator = 120000;
        format.rateDenominator = 2002;
        row("not in lowest terms", format, "1920x1080p59.94 YCbCr:422:10 3G A Rec.709");
        format.rateNumerator = 31;
        format.rateDenominator = 1;
        row("no such rate", format, "");
        format = hd;
        format.width = 1440;
        row("no such width", format, "");
        format = {.width = 720, .height = 480, .rateNumerator = 30000, .rateDenominator = 1001};
        format.interlaced = true;
        format.colourimetry = Colourimetry::Rec601;
        row("480 lines", format, "720x486i59.94 YCbCr:422:10 270M Rec.601");
    }
    void picturesOfFilesHaveStandards()
    {
        QFETCH(VideoFormat, format);
        QFETCH(QString, standard);
        const auto found = VideoFormats::standardOf(format);
        QCOMPARE(found ? found->getStandardAsShortText() : QString(), standard);
    }

    void framesAreOnTimeForYears()
    {
        const VideoFormat format{.width = 1, .height = 1, .rateNumerator = 60000, .rateDenominator = 1001};
        QCOMPARE(VideoFormats::timeOfFrame(format, 1), std::chrono::nanoseconds(16683333));
        QCOMPARE(VideoFormats::timeOfFrame(format, 60'000'000'001),
                 std::chrono::seconds(1'001'000'000) + std::chrono::nanoseconds(16683333));
    }
};

WZ_TEST_CLASS(tst_VideoFormats)
#include "tst_VideoFormats.moc"
