#include "types/sdi/PayloadIdentifierFamilies.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::Sdi;
using namespace Velmora::Sdi::PayloadId;

namespace {

StandardFromPayloadIdentifier standardOf(std::initializer_list<std::uint32_t> words, bool quadrants = false)
{
    std::vector<StandardFromPayloadIdentifier::Identifier> identifiers;
    for (const std::uint32_t word : words)
        identifiers.push_back(makePayloadIdentifier(word));
    return StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(identifiers, quadrants);
}

StandardFromPayloadIdentifier quadrantsOf(std::uint32_t word)
{
    return standardOf({word, word, word, word}, true);
}

bool isNear(double value, double expected)
{
    return std::abs(value - expected) < 0.5;
}

using StandardWords = std::vector<std::uint32_t>;

} // namespace

Q_DECLARE_METATYPE(StandardWords)

class tst_StandardFromPayloadIdentifier : public WzTest {
    Q_OBJECT

private slots:
    /// Raster figures as printed in the standards. Widths and heights are those of one sub-image.
    void rasters_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<QSize>("frame");
        QTest::addColumn<QSize>("active");
        QTest::addColumn<unsigned>("to0H");
        QTest::addColumn<unsigned>("firstLine");
        QTest::addColumn<double>("sampleRateMHz");
        const auto row = [](const char* name, unsigned word, QSize frame, QSize active, unsigned to0H,
                            unsigned firstLine, double sampleRate) {
            QTest::newRow(name) << word << frame << active << to0H << firstLine << sampleRate;
        };
        const QSize sd525(720, 486), sd625(720, 576), hd720(1280, 720), hd(1920, 1080), wide(2048, 1080);
        const double slow = 74.25, slow1001 = 74.25 / 1.001, fast = 148.5, fast1001 = 148.5 / 1.001;

        row("ST 125 525i59.94", 0x81060001U, {858, 525}, sd525, 16, 21, 13.5);
        row("BT.656 625i50", 0x81050001U, {864, 625}, sd625, 12, 23, 13.5);
        row("ST 296 p60", 0x844B0001U, {1650, 750}, hd720, 110, 26, slow);
        row("ST 296 p59.94", 0x844A0001U, {1650, 750}, hd720, 110, 26, slow1001);
        row("ST 296 p50", 0x84490001U, {1980, 750}, hd720, 440, 26, slow);
        row("ST 296 p30", 0x84470001U, {3300, 750}, hd720, 1760, 26, slow);
        row("ST 296 p29.97", 0x84460001U, {3300, 750}, hd720, 1760, 26, slow1001);
        row("ST 296 p25", 0x84450001U, {3960, 750}, hd720, 2420, 26, slow);
        row("ST 296 p24", 0x84430001U, {4125, 750}, hd720, 2585, 26, slow);
        row("ST 296 p23.98", 0x84420001U, {4125, 750}, hd720, 2585, 26, slow1001);
        row("ST 274 p60", 0x89CB8001U, {2200, 1125}, hd, 88, 42, fast);
        row("ST 274 p59.94", 0x89CA8001U, {2200, 1125}, hd, 88, 42, fast1001);
        row("ST 274 p50", 0x89C98001U, {2640, 1125}, hd, 528, 42, fast);
        row("ST 274 i60", 0x85072001U, {2200, 1125}, hd, 88, 21, slow);
        row("ST 274 i59.94", 0x85062001U, {2200, 1125}, hd, 88, 21, slow1001);
        row("ST 274 i50", 0x85052001U, {2640, 1125}, hd, 528, 21, slow);
        row("ST 274 p25", 0x85C52001U, {2640, 1125}, hd, 528, 42, slow);
        row("ST 274 p24", 0x85C32001U, {2750, 1125}, hd, 638, 42, slow);
        row("RP 211 psf23.98", 0x85422001U, {2750, 1125}, hd, 638, 21, slow1001);
        row("ST 425-1 RGB p30 keeps its raster", 0x89C78201U, {2200, 1125}, hd, 88, 42, slow);
        row("ST 372 p59.94", 0x874A2001U, {2200, 1125}, hd, 88, 42, fast1001);
        // 0H of 2048-wide pictures: unconfirmed, half of CTA-861 4096x2160
        row("ST 2048-2 p60", 0x89CB4001U, {2200, 1125}, wide, 44, 42, fast);
        row("ST 2048-2 p50", 0x89C94001U, {2640, 1125}, wide, 484, 42, fast);
        row("ST 2048-2 p47.95", 0x89C44001U, {2750, 1125}, wide, 510, 42, fast1001);
        row("ST 2048-2 psf25", 0x85454001U, {2640, 1125}, wide, 484, 21, slow);
        row("ST 2082-10 sub-image p59.94", 0xCECAA001U, {2200, 1125}, hd, 88, 42, fast1001);
        row("ST 2082-10 sub-image 4096 p48", 0xCEC86001U, {2750, 1125}, wide, 510, 42, fast);
        row("ST 2082-12 intermediate sub-image p60", 0xD2CBA001U, {4400, 2250}, {3840, 2160}, 176, 83, 594.0);
        row("no such raster", 0x89CF8001U, {0, 0}, hd, 0, 42, 0.0);
    }
    void rasters()
    {
        QFETCH(unsigned, word);
        QFETCH(QSize, active);
        QFETCH(double, sampleRateMHz);
        const auto standard = standardOf({word});
        QTEST(standard.getWidthAndHeightOfSubImageFrameForTimingCalculations(), "frame");
        QCOMPARE(standard.getSubImageActiveWidth(), static_cast<unsigned>(active.width()));
        QCOMPARE(standard.getSubImageActiveHeight(), static_cast<unsigned>(active.height()));
        QTEST(standard.getNumberOfPixelsFromStartOfLine1To0H(), "to0H");
        QTEST(standard.getFirstLineOfActivePicture(), "firstLine");
        QVERIFY(isNear(standard.getSubPicutureSampleRateInHz(), sampleRateMHz * 1e6));
    }

    /// ST 2036-1: the whole picture seen as one raster.
    void wholePicture_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<bool>("quadrants");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<unsigned>("totalWidth");
        QTest::newRow("ST 2036-1 2160p60") << 0xCECB8001U << false << QSize(3840, 2160) << 4400U;
        QTest::newRow("ST 2036-1 2160p25") << 0xC0C58001U << false << QSize(3840, 2160) << 5280U;
        QTest::newRow("ST 2048-1 4096 p24") << 0xC0C34001U << false << QSize(4096, 2160) << 5500U;
        QTest::newRow("ST 2036-1 4320p60") << 0xD2CB8001U << false << QSize(7680, 4320) << 8800U;
        QTest::newRow("ST 2036-1 4320p50") << 0xD2C98001U << false << QSize(7680, 4320) << 10560U;
        QTest::newRow("ST 425-5 annex B 2160p50") << 0x89C98001U << true << QSize(3840, 2160) << 5280U;
        QTest::newRow("ST 274 1080i50") << 0x85052001U << false << QSize(1920, 1080) << 2640U;
        QTest::newRow("ST 125 525i") << 0x81060001U << false << QSize(720, 486) << 858U;
    }
    void wholePicture()
    {
        QFETCH(unsigned, word);
        QFETCH(bool, quadrants);
        QFETCH(QSize, size);
        QFETCH(unsigned, totalWidth);
        const auto standard = quadrants ? quadrantsOf(word) : standardOf({word});
        QCOMPARE(standard.getReconsutructedImageDimensionsInPixels(), size);
        QCOMPARE(standard.getReconstructedPictureHorizontalblankingSize(),
                 totalWidth - static_cast<unsigned>(size.width()));
        QCOMPARE(standard.getPixelsPerFrame(), static_cast<unsigned>(size.width() * size.height()));
    }

    void links_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<unsigned>("links");
        QTest::addColumn<double>("totalMbps");
        QTest::addColumn<double>("levelBSampleMHz");
        QTest::addColumn<bool>("lineInterleaved");
        QTest::newRow("ST 259") << 0x81060001U << 1U << 270.0 << 0.0 << false;
        QTest::newRow("ST 292-1") << 0x85052001U << 1U << 1485.0 << 0.0 << false;
        QTest::newRow("ST 292-1 /1.001") << 0x85062001U << 1U << 1485.0 / 1.001 << 0.0 << false;
        QTest::newRow("ST 372 p59.94") << 0x874A2001U << 2U << 2970.0 / 1.001 << 74.25 / 1.001 << true;
        QTest::newRow("ST 372 RGB psf25") << 0x87452201U << 2U << 2970.0 << 74.25 << false;
        QTest::newRow("ST 425-1 A") << 0x89C98001U << 1U << 2970.0 << 0.0 << false;
        QTest::newRow("ST 425-1 B p50") << 0x8A492001U << 1U << 2970.0 << 74.25 << true;
        QTest::newRow("ST 425-1 B RGB i50") << 0x8A052201U << 1U << 2970.0 << 74.25 << false;
        QTest::newRow("ST 425-3 p25") << 0x96C52001U << 2U << 5940.0 << 74.25 << false;
        QTest::newRow("ST 425-5 B p60") << 0x984B2001U << 4U << 11880.0 << 74.25 << true;
        QTest::newRow("ST 425-5 B RGB p25") << 0x98C52201U << 4U << 11880.0 << 74.25 << false;
        QTest::newRow("ST 2081-11") << 0xC2C9A001U << 2U << 11880.0 << 0.0 << false;
        QTest::newRow("ST 2082-10 /1.001") << 0xCECAA001U << 1U << 11880.0 / 1.001 << 0.0 << false;
        QTest::newRow("ST 2082-12") << 0xD2CBA001U << 4U << 47520.0 << 0.0 << false;
    }
    void links()
    {
        QFETCH(unsigned, word);
        QFETCH(unsigned, links);
        QFETCH(double, totalMbps);
        QFETCH(double, levelBSampleMHz);
        const auto standard = standardOf({word});
        QCOMPARE(standard.getNumberOfPhysicalLinks(), links);
        QCOMPARE(standard.getPhysicalLinksDataRates().size(), std::size_t{links});
        QVERIFY(isNear(standard.getTotalDataRate(), totalMbps * 1e6));
        QVERIFY(isNear(standard.getLevelBLinkSampleRateInHz(), levelBSampleMHz * 1e6));
        QTEST(standard.isLevelBLineInterleaved(), "lineInterleaved");
        QCOMPARE(standard.processedAsLevelB(), levelBSampleMHz > 0);
    }

    void identifiersOfSubImages_data()
    {
        QTest::addColumn<StandardWords>("words");
        QTest::addColumn<bool>("quadrants");
        QTest::addColumn<QString>("perSubImage"); // low digits of the words, sub-images separated by '|'
        const auto row = [](const char* name, const StandardWords& words, bool quadrants,
                            const char* expected) {
            QTest::newRow(name) << words << quadrants << QString::fromLatin1(expected);
        };
        row("ST 372", {0x874A2001, 0x874A2041}, false, "01 41");
        row("ST 425-1 B", {0x8A4A2001, 0x8A4A2041}, false, "01 41");
        row("ST 425-3", {0x96C52001, 0x96C52041, 0x96C52081, 0x96C520C1}, false, "01|41|81|C1");
        row("ST 425-5 B",
            {0x984A2001, 0x984A2021, 0x984A2041, 0x984A2061, 0x984A2081, 0x984A20A1, 0x984A20C1, 0x984A20E1},
            false, "01 21|41 61|81 A1|C1 E1");
        row("ST 2081-11: two sub-images per link", {0xC2CAA001, 0xC2CAA021}, false, "01|01|21|21");
        row("ST 2082-10: one for all", {0xCECAA001}, false, "01|01|01|01");
        row("ST 425-5 annex B level B",
            {0x8A4A2001, 0x8A4A2041, 0x8A4A2001, 0x8A4A2041, 0x8A4A2001, 0x8A4A2041, 0x8A4A2001, 0x8A4A2041},
            true, "01 41|01 41|01 41|01 41");
    }
    void identifiersOfSubImages()
    {
        QFETCH(StandardWords, words);
        QFETCH(bool, quadrants);
        std::vector<StandardFromPayloadIdentifier::Identifier> identifiers;
        for (const std::uint32_t word : words)
            identifiers.push_back(makePayloadIdentifier(word));
        const auto standard =
            StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(identifiers, quadrants);
        QCOMPARE(standard.getPayloadIdentifierWords(), words);
        QStringList subImages;
        for (unsigned i = 0; i < standard.getSubImageCount(); ++i) {
            QStringList digits;
            for (const auto& identifier : standard.getPayloadIdentifiersForSubImage(i))
                digits += QString::number(identifier->getWord(), 16).right(2).toUpper();
            subImages += digits.join(QLatin1Char(' '));
        }
        QTEST(subImages.join(QLatin1Char('|')), "perSubImage");
        QVERIFY(standard.getPayloadIdentifiersForSubImage(standard.getSubImageCount()).empty());
    }

    void texts()
    {
        QCOMPARE(quadrantsOf(0x89D9A001U).getStandardAsShortText(),
                 QStringLiteral("3840x2160p50 YCbCr:422:10 QL 3G A SQ HLG Rec.2020"));
        QCOMPARE(quadrantsOf(0x8A4A2001U).getStandardAsShortText(),
                 QStringLiteral("3840x2160p59.94 YCbCr:422:10 QL 3G B SQ Rec.709"));
        QCOMPARE(quadrantsOf(0x85456001U).getStandardAsShortText(),
                 QStringLiteral("4096x2160psf25 YCbCr:422:10 QL 1.5G SQ Rec.709"));
        QCOMPARE(quadrantsOf(0x89EAA011U).getStandardAsShortText(),
                 QStringLiteral("3840x2160p59.94 YCbCr:422:10 QL 3G A SQ ICtCp PQ Rec.2020"));
        QCOMPARE(standardOf({0x85052001U}).getStandardAsShortText(),
                 QStringLiteral("1920x1080i50 YCbCr:422:10 1.5G Rec.709"));
        QCOMPARE(standardOf({0x874A2001U, 0x874A2041U}).getStandardAsLongText(),
                 QStringLiteral("1920x1080p59.94 YCbCr:422:10 DL 1.5G Rec.709"));
        QCOMPARE(standardOf({}).getStandardAsShortText(), QStringLiteral("No payload identifier"));
        QCOMPARE(quadrantsOf(0x89D9A001U).getStandardAsReferenceString(),
                 QStringLiteral("3840x2160p50/YCbCr:422:10/4x3G-A-SQ/YCbCr/HLG/Rec.2020/89D9A001"));
        // ST 259 with the picture bit wrongly set: always interlaced, and named by its field rate.
        QVERIFY(
            standardOf({0x81460001U}).getStandardAsShortText().startsWith(QLatin1String("720x486i59.94 ")));
        QCOMPARE(standardOf({0x81460001U}).getStandardAsComponents().rate, QStringLiteral("59.94"));
        const StandardComponents parts = standardOf({0x96E6A011U}).getStandardAsComponents();
        QCOMPARE((QStringList{parts.size, parts.scan, parts.rate, parts.sampling, parts.bitDepth, parts.links,
                              parts.dataRate, parts.level, parts.mapping, parts.luminance,
                              parts.transferCurve, parts.colourimetry}),
                 (QStringLiteral("3840x2160 p 29.97 YCbCr:422 10 DL 3G B 2-SI ICtCp PQ Rec.2020")
                      .split(QLatin1Char(' '))));
    }

    void properties_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<QString>("properties");
        const auto row = [](const char* name, unsigned word, const char* properties) {
            QTest::newRow(name) << word << QString::fromLatin1(properties);
        };
        row("525i: no clock division", 0x81060001U, "sd 525 halved");
        row("625i", 0x81050001U, "sd 625 halved");
        row("1080i59.94", 0x85062001U, "1001 halved");
        row("4:2:2:4 alpha, 12-bit", 0x89C58402U, "halved alpha extended");
        row("4:2:2:4 data, 12-bit", 0x89C58802U, "halved extended");
        row("RGBA", 0x89C58601U, "alpha extended");
        row("4:2:0", 0xCEC98301U, "halved extended");
        row("4:2:2 12-bit full range", 0x89C58003U, "halved extended");
        row("dual link", 0x874A2001U, "1001 halved duallink");
        row("level B", 0x8A4A2001U, "1001 halved levelB two");
        row("dual stream", 0x96C52001U, "halved levelB dualstream");
        row("quad 12G", 0xD2C9A001U, "halved single");
    }
    void properties()
    {
        QFETCH(unsigned, word);
        const auto s = standardOf({word});
        QStringList found;
        const auto note = [&found](bool holds, const char* name) {
            if (holds)
                found += QString::fromLatin1(name);
        };
        note(s.isStandardDefinition(), "sd");
        note(s.isSd525i(), "525");
        note(s.isSd625i(), "625");
        note(s.getClockIs1001Not1000() && s.getClockDivisor() == 1001, "1001");
        note(s.isChromaHalved(), "halved");
        note(s.hasAlphaChannel(), "alpha");
        note(s.isExtendedColourMode(), "extended");
        note(s.isDualLink1G5(), "duallink");
        note(s.linksAreLevelB(), "levelB");
        note(s.isDualLink3gLevelBdualStream4k(), "dualstream");
        note(s.physicalLinksHaveTwoPayloadIdentifiersPerSubImage(SdiDataRate::Rate3G), "two");
        note(s.isSingleLinkOfMultiLinkStandard(), "single");
        QTEST(found.join(QLatin1Char(' ')), "properties");
        QVERIFY(!s.physicalLinksHaveTwoPayloadIdentifiersPerSubImage(SdiDataRate::Rate12G));
    }

    void comparing()
    {
        const auto dualLink = standardOf({0x874A2001U, 0x874A2041U});
        const auto copy = dualLink;
        QVERIFY(copy == dualLink);
        QVERIFY(dualLink != standardOf({0x874A2001U}));
        QVERIFY(dualLink != standardOf({0x874A2041U, 0x874A2001U}));
        QVERIFY(standardOf({0x89C98001U}) != quadrantsOf(0x89C98001U));
    }
};

WZ_TEST_CLASS(tst_StandardFromPayloadIdentifier)
#include "tst_StandardFromPayloadIdentifier.moc"
