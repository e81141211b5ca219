#include "types/sdi/AudioChannelStatusDecoder.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using Velmora::AudioChannelStatusDecoder;
using Velmora::AudioProcessingRegisterApi::ChannelStatus;
using Decoder = AudioChannelStatusDecoder;

namespace {

/// A block with these bytes, the rest 0.
ChannelStatus blockOf(std::initializer_list<std::pair<unsigned, unsigned>> bytes)
{
    ChannelStatus cs;
    cs.validity = 1;
    for (const auto& [number, value] : bytes)
        cs.words[number / 4] |= value << (24 - 8 * (number % 4));
    return cs;
}

using FieldText = QString (*)(const std::uint32_t*);

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

Q_DECLARE_METATYPE(FieldText)
Q_DECLARE_METATYPE(ChannelStatus)

class tst_AudioChannelStatusDecoder : public WzTest {
    Q_OBJECT

private slots:
    /// All codes of a field: @p texts lists them in rising code order, "?" for a code without a row.
    void codes_data()
    {
        QTest::addColumn<FieldText>("textOf");
        QTest::addColumn<unsigned>("byte");
        QTest::addColumn<unsigned>("mask");
        QTest::addColumn<QString>("texts");
        const auto row = [](const char* name, FieldText textOf, unsigned byte, unsigned mask,
                            const char* texts) {
            QTest::newRow(name) << textOf << byte << mask << QString::fromUtf8(texts);
        };
        row("AES3 data type", Decoder::getDataTypeFromCSBytes, 0, 2, "PCM|Non-PCM");
        row("AES3 emphasis", Decoder::getPreemphasisFromCSBytesProfessional, 0, 28,
            "Unknown|None|?|50/15 \u00B5s|?|?|?|ITU-T J.17");
        row("IEC 60958-3 emphasis", Decoder::getPreemphasisFromCSBytesConsumer, 0, 56,
            "None|50/15 \u00B5s|?|?|?|?|?|?");
        row("AES3 lock", Decoder::getSourceLockFromCSBytes, 0, 32, "Locked|Unlocked");
        row("AES3 frequency, byte 0", Decoder::getFrequencyFromCSBytesProfessional, 0, 192,
            "Unspecified|44.1|48|32");
        row("AES3 frequency, byte 4", Decoder::getFrequencyFromCSBytesProfessional, 4, 124,
            "Unspecified|Unspecified|24|Unspecified|96|Unspecified|192|Unspecified|"
            "Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|"
            "Unspecified|Unspecified|22.05|Unspecified|88.2|Unspecified|176.4|Unspecified|"
            "Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|Unspecified|"
            "Unspecified");
        row("IEC 60958-3 frequency", Decoder::getFrequencyFromCSBytesConsumer, 3, 15,
            "44.1|?|48|32|?|?|?|?|?|?|?|?|?|?|?|?");
        row("AES3 mode", Decoder::getChannelModeFromCSBytesProfessional, 1, 15,
            "Unknown|1 Ch 2xFs|Stereo|?|1 Channel|?|?|?|2 Channel|1 Ch 2xFs|?|?|Pri-Sec|?|1 Ch "
            "2xFs|Multichannel");
        row("IEC 60958-3 mode", Decoder::getChannelModeFromCSBytesConsumer, 0, 192, "Mode 0|?|?|?");
        row("AES3 alignment", Decoder::getAlignmentLevelFromCSBytes, 2, 192, "Unknown|-18.06|-20|?");
        row("AES3 reliability", Decoder::getReliabilityFromCSBytes, 22, 240,
            "All Ok|ChSaTi - Ok|SiSaTi - Ok|SaTi - Ok|SiChTi - Ok|ChTi - Ok|SiTi - Ok|Ti - Ok|"
            "SiChSa - Ok|ChSa - Ok|SiSa - Ok|Sa - Ok|SiCh - Ok|Ch - Ok|Si - Ok|All Bad");
    }
    void codes()
    {
        QFETCH(FieldText, textOf);
        QFETCH(unsigned, byte);
        QFETCH(unsigned, mask);
        QFETCH(QString, texts);
        const QStringList expected = texts.split(QLatin1Char('|'));
        int next = 0;
        for (unsigned value = 0; value < 256; ++value) {
            if ((value & ~mask) != 0)
                continue;
            QCOMPARE(textOf(blockOf({{byte, value}}).words.data()), expected.value(next++));
            // The other bits of the byte belong to other fields.
            const unsigned others = byte == 4 ? 0x03 : ~mask & 0xFFU;
            QCOMPARE(textOf(blockOf({{byte, value | others}}).words.data()), expected.value(next - 1));
        }
        QCOMPARE(next, expected.size());
    }

    void scaledFrequencies_data()
    {
        QTest::addColumn<unsigned>("byte0");
        QTest::addColumn<unsigned>("byte4");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* text, unsigned byte0, unsigned byte4) {
            QTest::newRow(text) << byte0 << byte4 << latin1(text);
        };
        // AES3 byte 4 bit 7: 1000/1001, six significant digits
        row("47.952", 0x81, 0x80);
        row("44.0559", 0x41, 0x80);
        row("31.968", 0xC1, 0x80);
        row("23.976", 0x01, 0x88);
        row("95.9041", 0x01, 0x90);
        row("191.808", 0x01, 0x98);
        row("22.028", 0x01, 0xC8);
        row("88.1119", 0x01, 0xD0);
        row("176.224", 0x01, 0xD8);
        row("Unspecified", 0x01, 0x80);
    }
    void scaledFrequencies()
    {
        QFETCH(unsigned, byte0);
        QFETCH(unsigned, byte4);
        const ChannelStatus cs = blockOf({{0, byte0}, {4, byte4}});
        QTEST(Decoder::getFrequencyFromCSBytesProfessional(cs.words.data()), "text");
    }

    void wordLengths_data()
    {
        QTest::addColumn<bool>("professional");
        QTest::addColumn<unsigned>("value");
        QTest::addColumn<QString>("text");
        const auto row = [](bool professional, unsigned value, const char* text) {
            QTest::addRow("%s 0x%02X", professional ? "AES3 byte 2" : "IEC 60958-3 byte 4", value)
                << professional << value << latin1(text);
        };
        row(true, 0x00, "Default (20)/Default (20)");
        row(true, 0x04, "Default (24)/24");
        row(true, 0x02, "Default (20)/20");
        row(true, 0x06, "Default (User)/User");
        row(true, 0x2E, "?/User");
        row(true, 0x01, "Default (?)/?");
        row(true, 0x2C, "24/24");
        row(true, 0x28, "20/Default (20)");
        row(true, 0x0C, "20/24");
        row(true, 0x08, "16/Default (20)");
        row(true, 0x0A, "16/20");
        row(true, 0x24, "23/24");
        row(true, 0x34, "21/24");
        row(true, 0x30, "17/Default (20)");
        row(true, 0x14, "22/24");
        row(true, 0x10, "18/Default (20)");
        row(true, 0x20, "19/Default (20)");
        row(true, 0xAC, "24/24");
        row(true, 0x1C, "?/24");
        row(true, 0x3C, "?/24");
        row(false, 0x00, "Default (20)/20");
        row(false, 0x01, "Default (24)/24");
        row(false, 0x0B, "24/24");
        row(false, 0x0A, "20/20");
        row(false, 0x02, "16/20");
        row(false, 0x03, "20/24");
        row(false, 0x0D, "21/24");
        row(false, 0x0C, "17/20");
        row(false, 0x05, "22/24");
        row(false, 0x09, "23/24");
        row(false, 0x06, "?/20");
        row(false, 0x0F, "?/24");
    }
    void wordLengths()
    {
        QFETCH(bool, professional);
        QFETCH(unsigned, value);
        const ChannelStatus cs = blockOf({{professional ? 2 : 4, value}});
        QTEST(professional ? Decoder::getWordLengthFromCSBytesProfessional(cs.words.data())
                           : Decoder::getWordLengthFromCSBytesConsumer(cs.words.data()),
              "text");
    }

    void wholeProfessionalBlock()
    {
        ChannelStatus cs =
            blockOf({{0, 0x85},  {1, 0x08},  {2, 0x6C},  {6, 'A'},   {7, 'B'},   {8, 'C'},   {9, 'D'},
                     {10, '%'},  {11, '1'},  {12, 0},    {13, 0x7F}, {14, 0x0A}, {15, 0x34}, {16, 0x05},
                     {17, 0x78}, {18, 0x01}, {19, 0xB2}, {20, 0x03}, {21, 0x04}, {22, 0x30}});
        const auto decoded = Decoder::decodeAll(cs);
        QCOMPARE(decoded.char0.format, latin1("Pro"));
        QCOMPARE(decoded.char0.dataType, latin1("PCM"));
        QCOMPARE(decoded.char0.emphasis, latin1("None"));
        QCOMPARE(decoded.char0.sourceLock, latin1("Locked"));
        QCOMPARE(decoded.char0.frequency, latin1("48"));
        QCOMPARE(decoded.channelMode, latin1("2 Channel"));
        QCOMPARE(decoded.wordLength, latin1("24/24"));
        QCOMPARE(decoded.alignmentLevel, latin1("-18.06"));
        QCOMPARE(decoded.origin, latin1("ABCD"));
        QCOMPARE(decoded.destination, latin1("%1  "));
        QCOMPARE(decoded.sampleAddress, latin1("0a340578"));
        QCOMPARE(decoded.timeOfDay, latin1("01:b2:03:04"));
        QCOMPARE(decoded.reliability, latin1("SaTi - Ok"));
        QCOMPARE(decoded.status, latin1("CRCC Ok"));
    }

    void minimumProfessionalBlock()
    {
        const auto decoded = Decoder::decodeAll(blockOf({{0, 0x01}}));
        QCOMPARE(decoded.char0.dataType, latin1("PCM"));
        QCOMPARE(decoded.char0.emphasis, latin1("Unknown"));
        QCOMPARE(decoded.char0.sourceLock, latin1("Locked"));
        QCOMPARE(decoded.char0.frequency, latin1("Unspecified"));
        QCOMPARE(decoded.origin, latin1("    "));
    }

    void wholeConsumerBlock()
    {
        const auto decoded =
            Decoder::decodeAll(blockOf({{0, 0x0A}, {3, 0x02}, {4, 0x0B}, {6, 'A'}, {18, 1}, {22, 0xF0}}));
        QCOMPARE(decoded.char0.format, latin1("Consumer"));
        QCOMPARE(decoded.char0.dataType, latin1("Non-PCM"));
        QCOMPARE(decoded.char0.emphasis, QString::fromUtf8("50/15 \u00B5s"));
        QCOMPARE(decoded.char0.frequency, latin1("48"));
        QCOMPARE(decoded.channelMode, latin1("Mode 0"));
        QCOMPARE(decoded.wordLength, latin1("24/24"));
        QCOMPARE(decoded.status, latin1("No CRC"));
        for (const QString& text :
             {decoded.char0.sourceLock, decoded.alignmentLevel, decoded.origin, decoded.destination,
              decoded.sampleAddress, decoded.timeOfDay, decoded.reliability})
            QCOMPARE(text, latin1("N/A"));
    }

    void status_data()
    {
        QTest::addColumn<bool>("professional");
        QTest::addColumn<unsigned>("validity");
        QTest::addColumn<bool>("crcError");
        QTest::addColumn<QString>("text");
        QTest::newRow("good") << true << 1U << false << latin1("CRCC Ok");
        QTest::newRow("bad") << true << 1U << true << latin1("CRCC Bad");
        QTest::newRow("invalid") << true << 0U << false << latin1("Invalid");
        QTest::newRow("invalid wins") << true << 0U << true << latin1("Invalid");
        QTest::newRow("validity other than 1") << true << 2U << false << latin1("Invalid");
        QTest::newRow("consumer") << false << 1U << true << latin1("No CRC");
        QTest::newRow("consumer invalid") << false << 0U << false << latin1("Invalid");
    }
    void status()
    {
        QFETCH(bool, professional);
        QFETCH(unsigned, validity);
        QFETCH(bool, crcError);
        ChannelStatus cs;
        cs.validity = validity;
        cs.crcError = crcError;
        QTEST(Decoder::getStatus(cs, professional), "text");
    }

    void crcc_data()
    {
        QTest::addColumn<ChannelStatus>("cs");
        QTest::addColumn<int>("crcc");
        QTest::newRow("AES3 published example 1") << blockOf({{0, 0x3D}, {1, 0x02}, {4, 0x02}}) << 0x9B;
        QTest::newRow("AES3 published example 2") << blockOf({{0, 0x01}}) << 0x32;
        QTest::newRow("EBU Tech 3250 polynomial, all zero") << blockOf({}) << 0xB0;
        QTest::newRow("48 kHz two-channel 24-bit") << blockOf({{0, 0x85}, {1, 0x08}, {2, 0x2C}}) << 0x42;
        QTest::newRow("47.952 kHz") << blockOf({{0, 0x85}, {1, 0x08}, {2, 0x2C}, {4, 0x80}}) << 0xD0;
        QTest::newRow("last byte") << blockOf({{0, 0x85}, {1, 0x08}, {2, 0x2C}, {22, 0xF0}}) << 0x9F;
        QTest::newRow("every part") << blockOf({{0, 0x85},
                                                {1, 8},
                                                {2, 0x2C},
                                                {6, 'A'},
                                                {7, 'B'},
                                                {8, 'C'},
                                                {9, 'D'},
                                                {10, 'E'},
                                                {11, 'F'},
                                                {12, 'G'},
                                                {13, 'H'},
                                                {14, 0x12},
                                                {15, 0x34},
                                                {16, 0x56},
                                                {17, 0x78},
                                                {18, 1},
                                                {19, 2},
                                                {20, 3},
                                                {21, 4}})
                                    << 0x2A;
    }
    void crcc()
    {
        QFETCH(ChannelStatus, cs);
        QFETCH(int, crcc);
        QCOMPARE(int{Decoder::calculateCrcc(cs.words.data())}, crcc);
        cs.words[5] |= 0xFF; // byte 23 itself does not count
        QCOMPARE(int{Decoder::calculateCrcc(cs.words.data())}, crcc);
    }
};

WZ_TEST_CLASS(tst_AudioChannelStatusDecoder)
#include "tst_AudioChannelStatusDecoder.moc"
