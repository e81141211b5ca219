#include "types/sdi/PayloadIdentifierFamilies.h"
#include "types/sdi/SdiUtility.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::Sdi;
using namespace Velmora::Sdi::PayloadId;
using FieldType = PayloadIdentifierBase::FieldType;

namespace {

/// One identifier with what the standards say it means; -1 for a field that its family lacks.
struct WorkedExample {
    std::uint32_t word;
    const char* name;
    const char* scan;
    const char* framesPerSecond;
    const char* sampling;
    const char* depth;
    const char* colourimetry;
    const char* transfer;
    int aspect;
    int array;
    int channel;
};

const WorkedExample kExamples[] = {
    {0x81060001U, "ST 259: 525i59.94, 4:3, 10-bit", "i", "29.97", "YCbCr:422", "10", "Rec.601", "SDR-TV", 0,
     0, -1},
    {0x81058001U, "ST 259: 625i50, 16:9, 10-bit", "i", "25", "YCbCr:422", "10", "Rec.601", "SDR-TV", 1, 0,
     -1},
    {0x81050000U, "ST 259: 625i50, 4:3, 8-bit", "i", "25", "YCbCr:422", "8", "Rec.601", "SDR-TV", 0, 0, -1},
    {0x84490001U, "ST 292-1, ST 296: 1280x720p50", "p", "50", "YCbCr:422", "10", "Rec.709", "SDR-TV", -1, -1,
     -1},
    {0x844A0001U, "ST 292-1, ST 296: 1280x720p59.94", "p", "59.94", "YCbCr:422", "10", "Rec.709", "SDR-TV",
     -1, -1, -1},
    {0x84430001U, "ST 292-1, ST 296: 1280x720p24", "p", "24", "YCbCr:422", "10", "Rec.709", "SDR-TV", -1, -1,
     -1},
    {0x85052001U, "ST 292-1: 1920x1080i50", "i", "25", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0, -1},
    {0x85062001U, "ST 292-1: 1920x1080i59.94", "i", "29.97", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0,
     -1},
    {0x85422001U, "ST 292-1: 1920x1080psf23.98", "psf", "23.98", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0,
     -1},
    {0x85432001U, "ST 292-1: 1920x1080psf24", "psf", "24", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0, -1},
    {0x85452001U, "ST 292-1: 1920x1080psf25", "psf", "25", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0, -1},
    {0x85C52001U, "ST 292-1: 1920x1080p25", "p", "25", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0, -1},
    {0x85C62001U, "ST 292-1: 1920x1080p29.97", "p", "29.97", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0,
     -1},
    {0x85C34001U, "ST 292-1: 2048x1080p24, aspect unknown", "p", "24", "YCbCr:422", "10", "Rec.709", "SDR-TV",
     0, 1, -1},
    {0x8505A001U, "ST 292-1: 1920x1080i50, BT.2020, SDR", "i", "25", "YCbCr:422", "10", "Rec.2020", "SDR-TV",
     1, 0, -1},
    {0x8515A001U, "ST 292-1: 1920x1080i50, BT.2020, HLG", "i", "25", "YCbCr:422", "10", "Rec.2020", "HLG", 1,
     0, -1},
    {0x8526A003U, "ST 292-1: 1920x1080i59.94, BT.2020, PQ, 10-bit full range", "i", "29.97", "YCbCr:422",
     "10FR", "Rec.2020", "PQ", 1, 0, -1},
    {0x874A0001U, "ST 372: 1080p59.94 dual-link 1.5G, aspect unknown, link A", "p", "59.94", "YCbCr:422",
     "10", "Rec.709", "SDR-TV", 0, 0, 0},
    {0x874A2001U, "ST 372: 1080p59.94 dual-link 1.5G, link A", "p", "59.94", "YCbCr:422", "10", "Rec.709",
     "SDR-TV", 1, 0, 0},
    {0x874A2041U, "ST 372: 1080p59.94 dual-link 1.5G, link B", "p", "59.94", "YCbCr:422", "10", "Rec.709",
     "SDR-TV", 1, 0, 1},
    {0x87452202U, "ST 372: 1080psf25 RGB 12-bit dual-link 1.5G, link A", "psf", "25", "RGB:444", "12",
     "Rec.709", "SDR-TV", 1, 0, 0},
    {0x8A052201U, "ST 425-1: 1080i50 RGB 10-bit, 3G-B, link A", "i", "25", "RGB:444", "10", "Rec.709",
     "SDR-TV", 1, 0, 0},
    {0x8A4A2001U, "ST 425-1: 1080p59.94 4:2:2, 3G-B, link A", "p", "59.94", "YCbCr:422", "10", "Rec.709",
     "SDR-TV", 1, 0, 0},
    {0x8A4A2041U, "ST 425-1: 1080p59.94 4:2:2, 3G-B, link B", "p", "59.94", "YCbCr:422", "10", "Rec.709",
     "SDR-TV", 1, 0, 1},
    {0x8A59A041U, "ST 425-1: 1080p50 4:2:2 HLG BT.2020, 3G-B, link B", "p", "50", "YCbCr:422", "10",
     "Rec.2020", "HLG", 1, 0, 1},
    {0x88CA8201U, "ST 425-1: 1280x720p59.94 RGB 10-bit, 3G-A", "p", "59.94", "RGB:444", "10", "Rec.709",
     "SDR-TV", 1, -1, -1},
    {0x89C98001U, "ST 425-1: 1080p50, 3G-A", "p", "50", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0, -1},
    {0x89CA8001U, "ST 425-1: 1080p59.94, 3G-A", "p", "59.94", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0,
     -1},
    {0x89CB8000U, "ST 425-1: 1080p60, 3G-A, 10-bit full range", "p", "60", "YCbCr:422", "10FR", "Rec.709",
     "SDR-TV", 1, 0, -1},
    {0x89D9A001U, "ST 425-1: 1080p50, 3G-A, HLG BT.2020", "p", "50", "YCbCr:422", "10", "Rec.2020", "HLG", 1,
     0, -1},
    {0x89DAA001U, "ST 425-1: 1080p59.94, 3G-A, HLG BT.2020", "p", "59.94", "YCbCr:422", "10", "Rec.2020",
     "HLG", 1, 0, -1},
    {0x89E9A001U, "ST 425-1: 1080p50, 3G-A, PQ BT.2020", "p", "50", "YCbCr:422", "10", "Rec.2020", "PQ", 1, 0,
     -1},
    {0x89EAA001U, "ST 425-1: 1080p59.94, 3G-A, PQ BT.2020", "p", "59.94", "YCbCr:422", "10", "Rec.2020", "PQ",
     1, 0, -1},
    {0x89EAA011U, "ST 425-1: 1080p59.94, 3G-A, ICtCp PQ BT.2020", "p", "59.94", "YCbCr:422", "10", "Rec.2020",
     "PQ", 1, 0, -1},
    {0x89C68202U, "ST 425-1: 1080p29.97 RGB 12-bit, 3G-A", "p", "29.97", "RGB:444", "12", "Rec.709", "SDR-TV",
     1, 0, -1},
    {0x89438202U, "ST 425-1: 1080psf24 RGB 12-bit, 3G-A", "psf", "24", "RGB:444", "12", "Rec.709", "SDR-TV",
     1, 0, -1},
    {0x89C37E02U, "ST 425-1: 2048x1080p24 XYZ 12-bit, 3G-A, aspect and colourimetry unknown", "p", "24",
     "X'Y'Z':444", "12", "Unknown", "SDR-TV", 0, 1, -1},
    {0x89C44001U, "ST 425-1: 2048x1080p47.95 4:2:2, 3G-A, aspect unknown", "p", "47.95", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 0, 1, -1},
    {0x96C52001U, "ST 425-3: 2160p25 dual 3G-B-DS, stream 1 (link 1)", "p", "25", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 0},
    {0x96C52041U, "ST 425-3: 2160p25 dual 3G-B-DS, stream 2 (link 1)", "p", "25", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 1},
    {0x96C52081U, "ST 425-3: 2160p25 dual 3G-B-DS, stream 3 (link 2)", "p", "25", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 2},
    {0x96C520C1U, "ST 425-3: 2160p25 dual 3G-B-DS, stream 4 (link 2)", "p", "25", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 3},
    {0x97CAA001U, "ST 425-5: 2160p59.94 quad 3G-A, BT.2020, link 1", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "SDR-TV", 1, 0, 0},
    {0x97CAA041U, "ST 425-5: 2160p59.94 quad 3G-A, BT.2020, link 2", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "SDR-TV", 1, 0, 1},
    {0x97CAA081U, "ST 425-5: 2160p59.94 quad 3G-A, BT.2020, link 3", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "SDR-TV", 1, 0, 2},
    {0x97CAA0C1U, "ST 425-5: 2160p59.94 quad 3G-A, BT.2020, link 4", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "SDR-TV", 1, 0, 3},
    {0x97CA8001U, "ST 425-5: 2160p59.94 quad 3G-A, BT.709, link 1", "p", "59.94", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 0},
    {0x97EAA001U, "ST 425-5: 2160p59.94 quad 3G-A, PQ BT.2020, link 1", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "PQ", 1, 0, 0},
    {0x984A0001U, "ST 425-5: 2160p59.94 quad 3G-B, aspect unknown, stream 1 (link 1)", "p", "59.94",
     "YCbCr:422", "10", "Rec.709", "SDR-TV", 0, 0, 0},
    {0x984A2001U, "ST 425-5: 2160p59.94 quad 3G-B, stream 1 (link 1)", "p", "59.94", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 0},
    {0x984A2021U, "ST 425-5: 2160p59.94 quad 3G-B, stream 2 (link 1)", "p", "59.94", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 1},
    {0x984A2041U, "ST 425-5: 2160p59.94 quad 3G-B, stream 3 (link 2)", "p", "59.94", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 2},
    {0x984A20E1U, "ST 425-5: 2160p59.94 quad 3G-B, stream 8 (link 4)", "p", "59.94", "YCbCr:422", "10",
     "Rec.709", "SDR-TV", 1, 0, 7},
    {0x98C52201U, "ST 425-5: 2160p25 RGB 10-bit quad 3G-B, stream 1", "p", "25", "RGB:444", "10", "Rec.709",
     "SDR-TV", 1, 0, 0},
    {0xC0C5A001U, "ST 2081-10: 2160p25 6G, BT.2020", "p", "25", "YCbCr:422", "10", "Rec.2020", "SDR-TV", 1, 0,
     0},
    {0xC0C6A001U, "ST 2081-10: 2160p29.97 6G, BT.2020", "p", "29.97", "YCbCr:422", "10", "Rec.2020", "SDR-TV",
     1, 0, 0},
    {0xC0D6A001U, "ST 2081-10: 2160p29.97 6G, HLG BT.2020", "p", "29.97", "YCbCr:422", "10", "Rec.2020",
     "HLG", 1, 0, 0},
    {0xC0E6A001U, "ST 2081-10: 2160p29.97 6G, PQ BT.2020", "p", "29.97", "YCbCr:422", "10", "Rec.2020", "PQ",
     1, 0, 0},
    {0xC2CAA001U, "ST 2081-11: 2160p59.94 dual 6G, BT.2020, link 1", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "SDR-TV", 1, 0, 0},
    {0xC2CAA021U, "ST 2081-11: 2160p59.94 dual 6G, BT.2020, link 2", "p", "59.94", "YCbCr:422", "10",
     "Rec.2020", "SDR-TV", 1, 0, 1},
    {0xCEC9A001U, "ST 2082-10: 2160p50 12G, BT.2020", "p", "50", "YCbCr:422", "10", "Rec.2020", "SDR-TV", 1,
     0, 0},
    {0xCECAA001U, "ST 2082-10: 2160p59.94 12G, BT.2020", "p", "59.94", "YCbCr:422", "10", "Rec.2020",
     "SDR-TV", 1, 0, 0},
    {0xCEC98001U, "ST 2082-10: 2160p50 12G, BT.709", "p", "50", "YCbCr:422", "10", "Rec.709", "SDR-TV", 1, 0,
     0},
    {0xCED9A001U, "ST 2082-10: 2160p50 12G, HLG BT.2020", "p", "50", "YCbCr:422", "10", "Rec.2020", "HLG", 1,
     0, 0},
    {0xCEDAA001U, "ST 2082-10: 2160p59.94 12G, HLG BT.2020", "p", "59.94", "YCbCr:422", "10", "Rec.2020",
     "HLG", 1, 0, 0},
    {0xCEEAA001U, "ST 2082-10: 2160p59.94 12G, PQ BT.2020", "p", "59.94", "YCbCr:422", "10", "Rec.2020", "PQ",
     1, 0, 0},
    {0xCED99001U, "ST 2082-10: 2160p50 12G, HLG, colourimetry in Colour VANC packet", "p", "50", "YCbCr:422",
     "10", "ColVancPacket", "HLG", 1, 0, 0},
    {0xCEC68202U, "ST 2082-10: 2160p29.97 RGB 12-bit 12G, BT.709", "p", "29.97", "RGB:444", "12", "Rec.709",
     "SDR-TV", 1, 0, 0},
    {0xCEC46001U, "ST 2082-10: 4096x2160p47.95 12G, BT.2020", "p", "47.95", "YCbCr:422", "10", "Rec.2020",
     "SDR-TV", 0, 1, 0},
    {0xD2CBA001U, "ST 2082-12: 4320p60 quad 12G, BT.2020, link 1", "p", "60", "YCbCr:422", "10", "Rec.2020",
     "SDR-TV", 1, 0, 0},
    {0xD2CBA021U, "ST 2082-12: 4320p60 quad 12G, BT.2020, link 2", "p", "60", "YCbCr:422", "10", "Rec.2020",
     "SDR-TV", 1, 0, 1},
    {0xD2CBA061U, "ST 2082-12: 4320p60 quad 12G, BT.2020, link 4", "p", "60", "YCbCr:422", "10", "Rec.2020",
     "SDR-TV", 1, 0, 3},
};

int fieldOrMinus1(const PayloadIdentifierBase& identifier, FieldType type)
{
    const auto value = identifier.getField(type);
    return value ? static_cast<int>(*value) : -1;
}

/// Builds the word again from the typed fields.
std::uint32_t rebuilt(const PayloadIdentifierBase& id)
{
    return buildPayloadIdentifierWord(
        *id.family(), id.getTransportInterlaced(), id.getPictureInterlaced(), id.getPictureRate(),
        id.getSampleStructure(), id.getBitDepth(),
        {.transfer = id.getTransferCharacteristics(),
         .colourimetry = static_cast<Colourimetry>(id.getField(FieldType::Colourimetry).value_or(0)),
         .aspect = id.getAspectRatio(),
         .array = id.getHorizontalArraySize(),
         .luminance = id.getLuminanceAndColourDifferenceSignal(),
         .audioCopy = id.getAudioCopyStatus(),
         .channel = id.getChannel()});
}

QString hex(std::uint32_t word)
{
    return QString::number(word, 16).toUpper();
}

} // namespace

Q_DECLARE_METATYPE(std::vector<unsigned>)

class tst_PayloadIdentifier : public WzTest {
    Q_OBJECT

private slots:
    void workedExamples_data()
    {
        QTest::addColumn<int>("row");
        for (int i = 0; i < static_cast<int>(std::size(kExamples)); ++i)
            QTest::addRow("%08X %s", kExamples[i].word, kExamples[i].name) << i;
    }
    void workedExamples()
    {
        QFETCH(int, row);
        const WorkedExample& example = kExamples[row];
        const auto id = makePayloadIdentifier(example.word);
        using namespace SdiUtility;

        QVERIFY(id->hasCorrectpayloadAndDigitalInterface());
        QCOMPARE(convertScanToString(id->getPicutreInterlacedProgressivePsf()),
                 QString::fromLatin1(example.scan));
        QCOMPARE(convertPictureRateToString(id->getPictureRate(), PictureFormat::Progressive),
                 QString::fromLatin1(example.framesPerSecond));
        QCOMPARE(convertSampleStructureToString(id->getSampleStructure()),
                 QString::fromLatin1(example.sampling));
        QCOMPARE(convertBitDepthToString(id->getBitDepth()), QString::fromLatin1(example.depth));
        QCOMPARE(convertColourimetryToString(id->getColourimetry()),
                 QString::fromLatin1(example.colourimetry));
        QCOMPARE(convertTransferCurveToString(id->getTransferCharacteristics()),
                 QString::fromLatin1(example.transfer));
        QCOMPARE(fieldOrMinus1(*id, FieldType::AspectRatio), example.aspect);
        QCOMPARE(fieldOrMinus1(*id, FieldType::HorizontalPixelArraySize), example.array);
        QCOMPARE(fieldOrMinus1(*id, FieldType::Channel), example.channel);
        QCOMPARE(id->doReservedBitsChecks(), QStringList());
        QCOMPARE(hex(rebuilt(*id)), hex(example.word));

        // X'Y'Z' on 89h is right by ST 425-1 but fails this system's closed check.
        const QStringList errors = id->getSampleStructure() == SampleStructure::Xyz444
            ? QStringList{QStringLiteral("Invalid sampling structure: 14")}
            : QStringList();
        QCOMPARE(id->doSmpteValidationChecks(), errors);
    }

    void readingAndBuildingAreInverse_data()
    {
        QTest::addColumn<unsigned>("byte1");
        for (const PayloadFamily* family : PayloadFamilies::kAll)
            QTest::addRow("%02X %s", family->byte1, family->carries) << unsigned{family->byte1};
    }
    /// No field crosses a byte, so every code of every field occurs when each byte takes every value.
    void readingAndBuildingAreInverse()
    {
        QFETCH(unsigned, byte1);
        const PayloadFamily& family = *findPayloadFamily(byte1);
        const std::uint32_t mask = family.fields.mask();
        for (const std::uint32_t others : {0x00000000U, 0x00FFFFFFU, 0x00A55A5AU}) {
            for (unsigned shift = 0; shift < 24; shift += 8) {
                for (std::uint32_t value = 0; value < 256; ++value) {
                    const std::uint32_t bytes = (others & ~(0xFFU << shift)) | (value << shift);
                    const std::uint32_t word = (byte1 << 24) | (bytes & mask & 0x00FFFFFFU);
                    const auto id = makePayloadIdentifier(word);
                    QCOMPARE(hex(rebuilt(*id)), hex(word));
                    QVERIFY(id->doReservedBitsChecks().isEmpty());
                }
            }
        }
        QVERIFY(makePayloadIdentifier(byte1 << 24)->checkThatPayloadIdentifierFieldsDoNotOverlap());
    }

    void valuesReachTheirBits()
    {
        // ST 425-5: data stream 6 of eight, audio copied, ICtCp; every field away from 0.
        const std::uint32_t word = PayloadIdentifier2160_QuadLinkLevelb3g::getPayloadIdentifierWord(
            TransportFormat::Interlaced, PictureFormat::Progressive, PictureRate::Rate59_94,
            SampleStructure::YCbCr420, BitDepth::Bits10FullRange,
            {.transfer = TransferCurve::Pq,
             .colourimetry = Colourimetry::ColVancPacket,
             .aspect = AspectRatio::SixteenByNine,
             .array = HorizontalPixelArraySize::Size2048,
             .luminance = LuminanceAndColourDifferenceSignal::ICtCp,
             .audioCopy = AudioCopyStatus::CopyOfFirstLink,
             .channel = 5});
        QCOMPARE(hex(word), QStringLiteral("986A73B4"));
    }

    void explicitFieldMap()
    {
        // Bits in falling order: the first of the list is the value's least significant.
        const PayloadIdentifierBase id(
            0x12345680U, {{FieldType::PictureRate, {3, {7, 6, 5, 4}}}, {FieldType::Channel, {0, {1, 4}}}});
        QCOMPARE(static_cast<int>(id.getPictureRate()), 1);
        QCOMPARE(id.getChannel(), 3U);
        QVERIFY(!id.getField(FieldType::BitDepth));
        QCOMPARE(id.doReservedBitsChecks().size(), 7); // 34h and 56h
        QVERIFY(id.checkThatPayloadIdentifierFieldsDoNotOverlap());
        const PayloadIdentifierBase copy = id;
        QCOMPARE(copy.getChannel(), 3U);

        QVERIFY(
            !PayloadIdentifierBase(0, {{FieldType::PictureRate, {1, {0, 1}}}, {FieldType::Channel, {1, {1}}}})
                 .checkThatPayloadIdentifierFieldsDoNotOverlap());
        QVERIFY(!PayloadIdentifierBase(0, {{FieldType::PictureRate, {1, {0, 0}}}})
                     .checkThatPayloadIdentifierFieldsDoNotOverlap());
        QVERIFY(PayloadIdentifierBase(0).checkThatPayloadIdentifierFieldsDoNotOverlap());
    }

    void compareForVideoStandard_data()
    {
        QTest::addColumn<unsigned>("first");
        QTest::addColumn<unsigned>("second");
        QTest::addColumn<bool>("alike");
        QTest::addColumn<bool>("exactlyAlike");
        QTest::newRow("ST 372 links A and B") << 0x874A2001U << 0x874A2041U << true << true;
        QTest::newRow("ST 425-3 streams 1 and 4, audio copied") << 0x96C52001U << 0x96C520C5U << true << true;
        QTest::newRow("ST 425-5 streams 1 and 8") << 0x984A2001U << 0x984A20E1U << true << true;
        QTest::newRow("ST 2082-12 links 1 and 4") << 0xD2CBA001U << 0xD2CBA061U << true << true;
        QTest::newRow("aspect unknown") << 0x874A0001U << 0x874A2001U << true << false;
        QTest::newRow("ICtCp") << 0x89EAA001U << 0x89EAA011U << true << false;
        QTest::newRow("88h with cleared transport bit") << 0x884A8201U << 0x88CA8201U << true << false;
        QTest::newRow("psf and p") << 0x85452001U << 0x85C52001U << false << false;
        QTest::newRow("other rate") << 0x89C98001U << 0x89CA8001U << false << false;
        QTest::newRow("other depth") << 0x89CB8001U << 0x89CB8000U << false << false;
        QTest::newRow("other width") << 0x85C32001U << 0x85C36001U << false << false;
        QTest::newRow("other family") << 0x874A2001U << 0x8A4A2001U << false << false;
        QTest::newRow("other colourimetry") << 0xCECA8001U << 0xCECAA001U << false << false;
        QTest::newRow("other transfer") << 0xCEDAA001U << 0xCEEAA001U << false << false;
    }
    void compareForVideoStandard()
    {
        QFETCH(unsigned, first);
        QFETCH(unsigned, second);
        const auto a = makePayloadIdentifier(first);
        const auto b = makePayloadIdentifier(second);
        QTEST(a->compareForVideoStandard(*b, false), "alike");
        QTEST(b->compareForVideoStandard(*a, false), "alike");
        QTEST(a->compareForVideoStandard(*b, true), "exactlyAlike");
        QVERIFY(*a != *b);
    }

    void texts_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, unsigned word, const char* text) {
            QTest::newRow(name) << word << QString::fromLatin1(text);
        };
        row("none", 0U, "No payload identifier");
        row("ST 259 field rate", 0x81060001U, "720x486i59.94 YCbCr:422:10 270M Rec.601");
        row("ST 259 8-bit", 0x81050000U, "720x576i50 YCbCr:422:8 270M Rec.601");
        row("ST 292-1 field rate", 0x85052001U, "1920x1080i50 YCbCr:422:10 1.5G Rec.709");
        row("ST 292-1 reserved depth", 0x85452002U, "1920x1080psf25 YCbCr:422:Reserved 1.5G Rec.709");
        row("ST 372", 0x874A2041U, "1920x1080p59.94 YCbCr:422:10 DL 1.5G LinkB Rec.709");
        row("ST 425-1 B", 0x8A59A041U, "1920x1080p50 YCbCr:422:10 3G B LinkB HLG Rec.2020");
        row("ST 425-1 A ICtCp", 0x89EAA011U, "1920x1080p59.94 YCbCr:422:10 3G A ICtCp PQ Rec.2020");
        row("ST 425-1 A XYZ", 0x89C37E02U, "2048x1080p24 X'Y'Z':444:12 3G A Unknown");
        row("ST 425-1 undefined scan", 0x89858001U, "1920x1080Error50 YCbCr:422:10 3G A Rec.709");
        row("ST 425-3", 0x96C52081U, "3840x2160p25 YCbCr:422:10 DL 3G B 2-SI DS3_Link2 Rec.709");
        row("ST 425-5 A", 0x97CAA0C1U, "3840x2160p59.94 YCbCr:422:10 QL 3G A 2-SI DS4_Link4 Rec.2020");
        row("ST 425-5 B", 0x984A20E1U, "3840x2160p59.94 YCbCr:422:10 QL 3G B 2-SI DS8_Link4 Rec.709");
        row("ST 2081-10", 0xC0D6A001U, "3840x2160p29.97 YCbCr:422:10 6G 2-SI HLG Rec.2020");
        row("ST 2081-11", 0xC2CAA021U, "3840x2160p59.94 YCbCr:422:10 DL 6G 2-SI Link2 Rec.2020");
        row("ST 2082-10 S-Log3", 0xCEF96001U, "4096x2160p50 YCbCr:422:10 12G 2-SI S-Log3 Rec.2020");
        row("ST 2082-10 Colour VANC", 0xCED99001U, "3840x2160p50 YCbCr:422:10 12G 2-SI HLG ColVancPacket");
        row("ST 2082-12", 0xD2CBA061U, "7680x4320p60 YCbCr:422:10 QL 12G 2-SI Link4 Rec.2020");
        row("unsupported byte 1", 0x8C062001U, "0x0i59.94 YCbCr:422:10 Unknown Rec.709");
    }
    void texts()
    {
        QFETCH(unsigned, word);
        QTEST(makePayloadIdentifier(word)->toHumanReadable(false), "text");
    }

    void linkNames_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<QString>("names");
        const auto row = [](unsigned byte1, const char* names) {
            QTest::addRow("%02X", byte1) << (byte1 << 24) << QString::fromLatin1(names);
        };
        row(0x85, "");
        row(0x87, "LinkA LinkB");
        row(0x8A, "LinkA LinkB");
        row(0x96, "DS1_Link1 DS2_Link1 DS3_Link2 DS4_Link2");
        row(0x97, "DS1_Link1 DS2_Link2 DS3_Link3 DS4_Link4");
        row(0x98, "DS1_Link1 DS2_Link1 DS3_Link2 DS4_Link2 DS5_Link3 DS6_Link3 DS7_Link4 DS8_Link4");
        row(0xC0, "");
        row(0xC2, "Link1 Link2 Link3 Link4 Link5 Link6 Link7 Link8");
        row(0xCE, "");
        row(0xD2, "Link1 Link2 Link3 Link4 Link5 Link6 Link7 Link8");
    }
    void linkNames()
    {
        QFETCH(unsigned, word);
        const auto& channel = makePayloadIdentifier(word)->getFieldMap().at(FieldType::Channel);
        QStringList names;
        for (unsigned i = 0; i < (1U << channel.bitCount()); ++i) {
            const QString name = makePayloadIdentifier(channel.write(word, i))->getLinkName();
            QVERIFY(makePayloadIdentifier(channel.write(word, i))->toHumanReadable(false).contains(name));
            names += name;
        }
        QTEST(names.join(QLatin1Char(' ')).trimmed(), "names");
        // As a standard, all its identifiers read the same.
        QCOMPARE(makePayloadIdentifier(channel.write(word, 1))->toHumanReadable(true),
                 makePayloadIdentifier(word)->toHumanReadable(true));
    }

    /// A channel number that no family field can hold needs a wider field to be seen.
    void linkNamesOutOfRange_data()
    {
        QTest::addColumn<unsigned>("byte1");
        QTest::addColumn<QString>("name");
        QTest::newRow("dual link") << 0x87U << QStringLiteral("Link?");
        QTest::newRow("one stream per link") << 0x97U << QStringLiteral("DS?_Link?");
        QTest::newRow("two streams per link") << 0x98U << QStringLiteral("DS?_Link?");
        QTest::newRow("other multi-link") << 0xC2U << QStringLiteral("Link?");
    }
    void linkNamesOutOfRange()
    {
        QFETCH(unsigned, byte1);
        const PayloadIdentifierBase::FieldMap wide{{FieldType::Channel, {3, {0, 1, 2, 3, 4, 5, 6, 7}}}};
        const auto nameOf = [&wide](auto family, unsigned channel) {
            return decltype(family)(channel, wide).getLinkName();
        };
        const unsigned channel = 8;
        QString name;
        if (byte1 == 0x87)
            name = nameOf(PayloadIdentifier1080_DualLink1g5(0), 2);
        else if (byte1 == 0x97)
            name = nameOf(PayloadIdentifier2160_QuadLink3g(0), 4);
        else if (byte1 == 0x98)
            name = nameOf(PayloadIdentifier2160_QuadLinkLevelb3g(0), channel);
        else
            name = nameOf(PayloadIdentifier2160_DualLink6g(0), channel);
        QTEST(name, "name");
    }

    void transportGeometry_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<unsigned>("samples");
        QTest::addColumn<std::vector<unsigned>>("heights");
        QTest::addColumn<std::vector<unsigned>>("firstLines");
        using V = std::vector<unsigned>;
        QTest::newRow("ST 125 525i") << 0x81060001U << 720U << V{243, 243} << V{21, 283};
        QTest::newRow("BT.656 625i") << 0x81050001U << 720U << V{288, 288} << V{23, 336};
        QTest::newRow("ST 296 720p") << 0x84490001U << 1280U << V{720} << V{26};
        QTest::newRow("ST 274 1080i") << 0x85052001U << 1920U << V{540, 540} << V{21, 584};
        QTest::newRow("ST 274 1080psf") << 0x85452001U << 1920U << V{540, 540} << V{21, 584};
        QTest::newRow("ST 274 1080p") << 0x85C52001U << 1920U << V{1080} << V{42};
        QTest::newRow("ST 372 lines interleaved") << 0x874A2001U << 1920U << V{540, 540} << V{21, 584};
        QTest::newRow("ST 425-1 structure 1") << 0x89C98001U << 1920U << V{1080} << V{42};
        QTest::newRow("ST 425-1 structure 2") << 0x89C58201U << 3840U << V{1080} << V{42};
        QTest::newRow("ST 425-1 structure 4 at 2048") << 0x89C54002U << 4096U << V{1080} << V{42};
        QTest::newRow("ST 425-1 720-line structure 2") << 0x88CA8201U << 2560U << V{720} << V{26};
        QTest::newRow("ST 425-1 B extended") << 0x8AC52201U << 1920U << V{1080} << V{42};
        QTest::newRow("ST 2082-10 4:2:0 is mapped like 4:2:2") << 0xCEC98301U << 1920U << V{1080} << V{42};
        QTest::newRow("ST 2082-10 4:2:2 at 12 bits") << 0xCEC58002U << 3840U << V{1080} << V{42};
        QTest::newRow("ST 425-5 B at 25") << 0x98C52201U << 1920U << V{1080} << V{42};
        QTest::newRow("unsupported") << 0x12345678U << 0U << V{} << V{};
    }
    void transportGeometry()
    {
        QFETCH(unsigned, word);
        QFETCH(std::vector<unsigned>, heights);
        QFETCH(std::vector<unsigned>, firstLines);
        const auto id = makePayloadIdentifier(word);
        QTEST(id->getFieldActivePictureWidthInSamples(), "samples");
        QVERIFY(id->getFieldHeights() == heights);
        QVERIFY(id->getFieldFirstLineNumbersOfActivePicture() == firstLines);
        QCOMPARE(id->getFieldActivePictureHeight(true), heights.size() > 1 ? heights.at(1) : 0U);
    }

    void depthCodes()
    {
        const auto depthOf = [](unsigned byte1, int code) {
            return SdiUtility::convertBitDepthToString(
                makePayloadIdentifier(byte1 << 24)->interpretBitDepthAppropriatelyForStandard(code));
        };
        const auto all = [&depthOf](unsigned byte1) {
            return QStringList{depthOf(byte1, -1), depthOf(byte1, 0), depthOf(byte1, 1),
                               depthOf(byte1, 2),  depthOf(byte1, 3), depthOf(byte1, 4)}
                .join(QLatin1Char(' '));
        };
        QCOMPARE(all(0x84), QStringLiteral("Reserved 8 10 Reserved Reserved Reserved"));
        QCOMPARE(all(0x85), QStringLiteral("Reserved 8 10 Reserved 10FR Reserved"));
        QCOMPARE(all(0x89), QStringLiteral("Reserved 10FR 10 12 12FR Reserved"));
    }
};

WZ_TEST_CLASS(tst_PayloadIdentifier)
#include "tst_PayloadIdentifier.moc"
