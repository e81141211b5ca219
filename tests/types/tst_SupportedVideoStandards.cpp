#include "types/sdi/SupportedVideoStandards.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSet>

#include <algorithm>

using namespace Velmora::Sdi;
using namespace Velmora::Sdi::PayloadId;
using StandardList = SupportedVideoStandards::StandardList;

namespace {

/// Built once for all functions: it is read-only.
const SupportedVideoStandards& supported()
{
    static const SupportedVideoStandards standards;
    return standards;
}

unsigned byte1Of(const StandardFromPayloadIdentifier* standard)
{
    return standard->getFirstPayloadIdentifier().getPayloadAndDigitialInterface();
}

/// "97x4" and so on: the family with its link count, which sets quadrant standards apart.
QString familyOf(const StandardFromPayloadIdentifier* standard)
{
    return QString::number(byte1Of(standard), 16).toUpper() + QLatin1Char('x')
        + QString::number(standard->getNumberOfPhysicalLinks());
}

QString colourOf(const StandardFromPayloadIdentifier* standard)
{
    const auto parts = standard->getStandardAsComponents();
    return parts.colourimetry + QLatin1Char(' ') + parts.transferCurve;
}

/// The runs of equal texts in catalogue order.
template<typename TextOf>
QStringList runs(const StandardList& list, TextOf textOf)
{
    QStringList result;
    for (const auto* standard : list) {
        const QString text = textOf(standard);
        if (result.isEmpty() || result.last() != text)
            result += text;
    }
    return result;
}

const QString kFamilies2160 = QStringLiteral("CEx1 C2x2 C0x1 98x4 97x4 8Ax4 89x4 96x2 85x4");
const QString kFamilies1080 = QStringLiteral("8Ax1 87x2 89x1 88x1 85x1 84x1");

/// Reference strings of the analyser's standards, in catalogue order.
const QStringList& analyserReferences()
{
    static const QStringList references = [] {
        QStringList result;
        for (const auto* standard : supported().getSupportedAnalyserStandards())
            result += standard->getStandardAsReferenceString();
        return result;
    }();
    return references;
}

} // namespace

class tst_SupportedVideoStandards : public WzTest {
    Q_OBJECT

private slots:
    void catalogueOrder()
    {
        QCOMPARE(runs(supported().getSupportedAnalyserStandards(), familyOf).join(QLatin1Char(' ')),
                 QString(QLatin1String("D2x4 ") + kFamilies2160 + QLatin1Char(' ') + kFamilies1080
                         + QLatin1String(" 81x1")));
        QCOMPARE(runs(supported().getSupportedGeneratorStandards(), familyOf).join(QLatin1Char(' ')),
                 QString(kFamilies2160 + QLatin1Char(' ') + kFamilies1080));
        QCOMPARE(runs(supported().getSupportedAnalyserWithoutSingleLinkOfMultiLinkStandards(), familyOf)
                     .join(QLatin1Char(' ')),
                 QString(kFamilies2160 + QLatin1Char(' ') + kFamilies1080 + QLatin1String(" 81x1")));
    }

    void colourPairs_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<bool>("extended");
        QTest::addColumn<bool>("analyser");
        QTest::addColumn<bool>("sixPairs");
        QTest::newRow("4320 plain") << QStringLiteral("D2x4") << false << true << false;
        QTest::newRow("12G plain") << QStringLiteral("CEx1") << false << true << true;
        QTest::newRow("12G extended") << QStringLiteral("CEx1") << true << true << true;
        QTest::newRow("12G generator") << QStringLiteral("CEx1") << true << false << false;
        QTest::newRow("6G extended") << QStringLiteral("C0x1") << true << true << true;
        QTest::newRow("level B plain") << QStringLiteral("98x4") << false << true << true;
        QTest::newRow("level B extended") << QStringLiteral("98x4") << true << true << false;
        QTest::newRow("level B quadrants extended") << QStringLiteral("8Ax4") << true << true << true;
        QTest::newRow("level A quadrants plain") << QStringLiteral("89x4") << false << true << true;
        QTest::newRow("dual 3G") << QStringLiteral("96x2") << false << true << false;
        QTest::newRow("1.5G quadrants") << QStringLiteral("85x4") << false << true << false;
        QTest::newRow("3G A") << QStringLiteral("89x1") << true << false << false;
        QTest::newRow("1080 1.5G") << QStringLiteral("85x1") << false << true << false;
        QTest::newRow("720 1.5G") << QStringLiteral("84x1") << false << true << false;
    }
    void colourPairs()
    {
        QFETCH(QString, family);
        QFETCH(bool, extended);
        QFETCH(bool, analyser);
        QFETCH(bool, sixPairs);
        const StandardList& all = analyser ? supported().getSupportedAnalyserStandards()
                                           : supported().getSupportedGeneratorStandards();
        StandardList part;
        std::copy_if(all.begin(), all.end(), std::back_inserter(part), [&](const auto* standard) {
            return familyOf(standard) == family && standard->isExtendedColourMode() == extended;
        });
        QStringList expected{QStringLiteral("Rec.709 SDR-TV"), QStringLiteral("Rec.2020 SDR-TV"),
                             QStringLiteral("Rec.2020 PQ"), QStringLiteral("Rec.2020 HLG"),
                             QStringLiteral("Rec.2020 S-Log3")};
        if (sixPairs)
            expected += QStringLiteral("ColVancPacket SDR-TV");
        QCOMPARE(runs(part, colourOf), expected);
    }

    /// All of a family's 4:2:2 10-bit standards stand before those of other samplings and depths.
    void plainSetsComeFirst_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<QString>("firstExtended");
        const auto row = [](const char* family, const char* firstExtended) {
            QTest::newRow(family) << QString::fromLatin1(family) << QString::fromLatin1(firstExtended);
        };
        for (const char* family : {"D2x4", "CEx1", "C2x2", "C0x1", "98x4", "97x4"})
            row(family, "YCbCr:420:10");
        for (const char* family : {"8Ax4", "89x4", "8Ax1", "87x2", "89x1"})
            row(family, "YCbCr:444:10");
    }
    void plainSetsComeFirst()
    {
        QFETCH(QString, family);
        StandardList part;
        for (const auto* standard : supported().getSupportedAnalyserStandards()) {
            if (familyOf(standard) == family)
                part.push_back(standard);
        }
        const auto setOf = [](const StandardFromPayloadIdentifier* standard) {
            return QString::fromLatin1(standard->isExtendedColourMode() ? "extended" : "plain");
        };
        QCOMPARE(runs(part, setOf), (QStringList{QStringLiteral("plain"), QStringLiteral("extended")}));
        const auto contentOf = [](const StandardFromPayloadIdentifier* standard) {
            const auto parts = standard->getStandardAsComponents();
            return QString(parts.sampling + QLatin1Char(':') + parts.bitDepth);
        };
        QStringList contents = runs(part, contentOf);
        contents.removeDuplicates();
        contents.removeAll(QStringLiteral("YCbCr:422:10"));
        contents.removeAll(QStringLiteral("YCbCr:422:10FR"));
        QTEST(contents.value(0), "firstExtended");
    }

    /// Rates by format, as the interface standards give them.
    void rates_data()
    {
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<QString>("link");
        QTest::addColumn<QString>("rates");
        const auto row = [](const char* name, const char* prefix, const char* link, const char* rates) {
            QTest::newRow(name) << QString::fromLatin1(prefix) << QString::fromLatin1(link)
                                << QString::fromLatin1(rates);
        };
        const char* const low = "23.98 24 25 29.97 30";
        const char* const high = "50 59.94 60";
        const char* const cinemaHigh = "47.95 48 50 59.94 60";
        row("ST 125", "720x486i", "/YCbCr:422:10/1x270M/", "59.94");
        row("BT.656", "720x576i", "/YCbCr:422:8/1x270M/", "50");
        row("ST 296", "1280x720p", "/YCbCr:422:10/1x1.5G/", "23.98 24 25 29.97 30 50 59.94 60");
        row("ST 425-1 720", "1280x720p", "/RGB:444:10/1x3G-A/", "23.98 24 25 29.97 30 50 59.94 60");
        row("ST 292-1 i", "1920x1080i", "/YCbCr:422:10/1x1.5G/", "50 59.94 60");
        row("ST 292-1 psf", "1920x1080psf", "/YCbCr:422:10FR/1x1.5G/", low);
        row("ST 292-1 8-bit", "2048x1080p", "/YCbCr:422:8/1x1.5G/", low);
        row("ST 296 8-bit", "1280x720p", "/YCbCr:422:8/1x1.5G/", "23.98 24 25 29.97 30 50 59.94 60");
        row("ST 292-1 2048i", "2048x1080i", "/YCbCr:422:10/1x1.5G/", "");
        row("ST 425-1 A 4:2:2", "1920x1080p", "/YCbCr:422:10/1x3G-A/", high);
        row("ST 425-1 A 4:2:2 full range", "1920x1080p", "/YCbCr:422:10FR/1x3G-A/", high);
        row("ST 425-1 A 4:2:2 2048", "2048x1080p", "/YCbCr:422:10/1x3G-A/", cinemaHigh);
        row("ST 425-1 A RGB 12", "1920x1080p", "/RGB:444:12/1x3G-A/", low);
        row("ST 425-1 A RGB i", "1920x1080i", "/RGB:444:12/1x3G-A/", "50 59.94 60");
        row("ST 425-1 B XYZ", "2048x1080p", "/X'Y'Z':444:12/1x3G-B/", low);
        row("ST 425-1 B XYZ i", "1920x1080i", "/X'Y'Z':444:12/1x3G-B/", "");
        row("ST 425-1 B 4:4:4:4 12", "1920x1080p", "/RGBA:4444:12/1x3G-B/", "");
        row("ST 372 4:2:2", "1920x1080p", "/YCbCr:422:10/2x1.5G/", high);
        row("ST 372 4:2:2 2048, as far as its check goes", "2048x1080p", "/YCbCr:422:10/2x1.5G/", "47.95");
        row("ST 425-3", "3840x2160p", "/YCbCr:422:10/2x3G-B-2-SI/", low);
        row("ST 425-5 4:2:0", "4096x2160p", "/YCbCr:420:10/4x3G-A-2-SI/", cinemaHigh);
        row("ST 425-5 4:2:2 12", "3840x2160p", "/YCbCr:422:12/4x3G-B-2-SI/", low);
        row("ST 425-5 annex B psf", "3840x2160psf", "/RGB:444:12FR/4x3G-A-SQ/", low);
        row("ST 2081-10", "4096x2160p", "/YCbCr:422:10/1x6G-2-SI/", low);
        row("ST 2081-10 4:2:0", "3840x2160p", "/YCbCr:420:10FR/1x6G-2-SI/", low);
        row("ST 425-3 4:2:0", "3840x2160p", "/YCbCr:420:10/2x3G-B-2-SI/", low);
        row("ST 425-5 B 4:2:0", "3840x2160p", "/YCbCr:420:10/4x3G-B-2-SI/", high);
        row("ST 2081-10 RGB", "3840x2160p", "/RGB:444:10/1x6G-2-SI/", "");
        row("ST 2081-11", "3840x2160p", "/YCbCr:422:10/2x6G-2-SI/", high);
        row("ST 2082-10", "4096x2160p", "/YCbCr:422:10/1x12G-2-SI/", cinemaHigh);
        row("ST 2082-12", "7680x4320p", "/YCbCr:420:10/4x12G-2-SI/", high);
        row("ST 2082-12 RGB", "7680x4320p", "/RGB:444:12/4x12G-2-SI/", low);
    }
    void rates()
    {
        QFETCH(QString, prefix);
        QFETCH(QString, link);
        QStringList found;
        for (const QString& reference : analyserReferences()) {
            const QString rate = reference.mid(prefix.size()).section(QLatin1Char('/'), 0, 0);
            if (reference.startsWith(prefix + rate + link) && rate.front().isDigit() && !found.contains(rate))
                found += rate;
        }
        QTEST(found.join(QLatin1Char(' ')), "rates");
    }

    void everyStandardIsValidAndFound()
    {
        const auto& index = supported().getAnalyserStandardsIndex();
        for (const auto* standard : supported().getSupportedAnalyserStandards()) {
            const auto& first = standard->getFirstPayloadIdentifier();
            const auto fail = [standard](const char* what) {
                return qPrintable(standard->getStandardAsReferenceString() + QLatin1Char(' ')
                                  + QLatin1String(what));
            };
            for (const auto& identifier : standard->getPayloadIdentifiers()) {
                QVERIFY2(identifier->doSmpteValidationChecks().isEmpty(), fail("is invalid"));
                QVERIFY2(identifier->doReservedBitsChecks().isEmpty(), fail("has reserved bits"));
                QVERIFY2(identifier->compareForVideoStandard(first, true), fail("mixes standards"));
            }
            const StandardList found =
                index.findMatchingStandardList(first, standard->getNumberOfPhysicalLinks());
            QVERIFY2(found == StandardList{standard}, fail("is not found alone"));

            const StandardList byFields = index.findMatchingStandardList(
                standard->getNumberOfPhysicalLinks(), standard->getPhysicalLinksDataRates().front(),
                standard->getTransferCurve(), standard->getColourimetry(), standard->getSampleStructure(),
                standard->getBitDepth(), standard->getCombinedFormat(), standard->getLinkLevel());
            QVERIFY2(std::count(byFields.begin(), byFields.end(), standard) == 1,
                     fail("is not found by fields"));
            QVERIFY2(standard->getSubImageFrameWidth() > standard->getSubImageActiveWidth(),
                     fail("has no raster"));
            QVERIFY2(standard->getCombinedFormat() != CombinedFormat::Unknown, fail("has no format"));
        }
    }

    void standardsArePairwiseDifferent_data()
    {
        QTest::addColumn<bool>("analyser");
        QTest::newRow("analyser") << true;
        QTest::newRow("generator") << false;
    }
    void standardsArePairwiseDifferent()
    {
        QFETCH(bool, analyser);
        const StandardList& list = analyser ? supported().getSupportedAnalyserStandards()
                                            : supported().getSupportedGeneratorStandards();
        std::vector<std::vector<std::uint32_t>> words;
        QSet<QString> references;
        QSet<QString> texts;
        for (const auto* standard : list) {
            words.push_back(standard->getPayloadIdentifierWords());
            references.insert(standard->getStandardAsReferenceString());
            if (!standard->isStandardDefinition()) // whose name does not tell 4:3 from 16:9
                texts.insert(standard->getStandardAsShortText());
        }
        std::sort(words.begin(), words.end());
        QVERIFY(std::adjacent_find(words.begin(), words.end()) == words.end());
        QCOMPARE(references.size(), static_cast<int>(list.size()));
        QCOMPARE(texts.size(), static_cast<int>(list.size()) - (analyser ? 8 : 0));
    }

    /// Generator standards are the analyser's in the same order, less what only the analyser has.
    void theAnalyserKnowsWhatTheGeneratorMakes()
    {
        const StandardList& generator = supported().getSupportedGeneratorStandards();
        auto next = generator.begin();
        for (const auto* standard : supported().getSupportedAnalyserStandards()) {
            if (standard->isStandardDefinition() || standard->isSingleLinkOfMultiLinkStandard()
                || standard->getColourimetry() == Colourimetry::ColVancPacket)
                continue;
            QVERIFY2(next != generator.end() && **next == *standard,
                     qPrintable(standard->getStandardAsReferenceString()));
            ++next;
        }
        QVERIFY(next == generator.end());
    }

    void received_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<unsigned>("links");
        QTest::addColumn<QString>("standards");
        const auto row = [](const char* name, unsigned word, unsigned links, const char* standards) {
            QTest::newRow(name) << word << links << QString::fromLatin1(standards);
        };
        row("ST 372 link B", 0x874A2041U, 2, "1920x1080p59.94 YCbCr:422:10 DL 1.5G Rec.709");
        row("ST 372 aspect unknown", 0x874A0001U, 2, "1920x1080p59.94 YCbCr:422:10 DL 1.5G Rec.709");
        row("ST 425-5 stream 8", 0x984A20E1U, 4, "3840x2160p59.94 YCbCr:422:10 QL 3G B 2-SI Rec.709");
        row("ST 425-1 once", 0x89C98001U, 1, "1920x1080p50 YCbCr:422:10 3G A Rec.709");
        row("ST 425-1 four times", 0x89C98001U, 4, "3840x2160p50 YCbCr:422:10 QL 3G A SQ Rec.709");
        row("ST 425-1 twice", 0x89C98001U, 2, "");
        row("ST 2082-10 four times", 0xCEC98001U, 4, "");
        row("ST 425-1 88h, transport bit cleared", 0x884A8201U, 1, "1280x720p59.94 RGB:444:10 3G A Rec.709");
        row("BT.2100 ICtCp by its nearest", 0x89EAA011U, 1, "1920x1080p59.94 YCbCr:422:10 3G A PQ Rec.2020");
        row("ST 259 16:9", 0x81058001U, 1, "720x576i50 YCbCr:422:10 270M Rec.601");
        row("ST 2082-12 one link", 0xD2CBA021U, 1, "7680x4320p60 YCbCr:422:10 QL 12G 2-SI Rec.2020");
        row("ST 2082-12 four links", 0xD2CBA021U, 4, "7680x4320p60 YCbCr:422:10 QL 12G 2-SI Rec.2020");
        row("ST 2082-12 two links", 0xD2CBA021U, 2, "");
        row("ST 372 one link", 0x874A2001U, 1, "");
        row("unknown rate", 0x89CF8001U, 1, "");
        row("unknown sampling", 0x89C98B01U, 1, "");
        row("unsupported byte 1", 0x8C062001U, 1, "");
        row("none", 0U, 0, "");
    }
    void received()
    {
        QFETCH(unsigned, word);
        QFETCH(unsigned, links);
        QStringList names;
        const auto found = supported().getAnalyserStandardsIndex().findMatchingStandardList(
            *makePayloadIdentifier(word), links);
        for (const auto* standard : found)
            names += standard->getStandardAsShortText();
        QTEST(names.join(QLatin1Char('|')), "standards");
    }

    void lookUpByFields()
    {
        const auto& index = supported().getAnalyserStandardsIndex();
        const auto find = [&index](unsigned links, Level level, CombinedFormat format) {
            QStringList names;
            const auto found = index.findMatchingStandardList(
                links, SdiDataRate::Rate3G, TransferCurve::SdrTv, Colourimetry::Rec709,
                SampleStructure::YCbCr422, BitDepth::Bits10, format, level);
            for (const auto* standard : found)
                names += standard->getStandardAsComponents().rate;
            return names.join(QLatin1Char(' '));
        };
        QCOMPARE(find(1, Level::A, CombinedFormat::P2048x1080), QStringLiteral("47.95 48 50 59.94 60"));
        QCOMPARE(find(1, Level::A, CombinedFormat::I1920x1080), QString());
        QCOMPARE(find(3, Level::A, CombinedFormat::P2048x1080), QString());
        QCOMPARE(find(1, Level::None, CombinedFormat::P2048x1080), QString());
        // Interleaved and quadrant standards share the node, rate by rate.
        QCOMPARE(find(4, Level::A, CombinedFormat::P3840x2160), QStringLiteral("50 50 59.94 59.94 60 60"));
    }
};

WZ_TEST_CLASS(tst_SupportedVideoStandards)
#include "tst_SupportedVideoStandards.moc"
