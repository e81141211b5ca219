#include "types/sdi/PayloadIdentifierFamilies.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

using namespace Velmora::Sdi;

namespace {

struct FaultyIdentifier {
    const char* name;
    std::uint32_t word;
    const char* errors; ///< of the standard checks, then of the reserved bits, joined by "; "
};

const FaultyIdentifier kFaulty[] = {
    {"ST 296: 2.7 reserved", 0x84CA0001U, "Reserved bit not 0, Byte 1, Bit 7"},
    // 3.7 is reserved as well, but read here as the high bit of colourimetry, see the family
    {"ST 296: 2.7 and 3.7 reserved", 0x84CA8001U, "Reserved bit not 0, Byte 1, Bit 7"},
    {"ST 296: 4:2:2 only", 0x844A0101U, "Invalid sampling structure: 1"},
    {"ST 296: no interlaced form", 0x840A0001U, "Invalid picture interlace format: 0"},
    {"ST 259: always interlaced", 0x81460001U, "Invalid picture interlace format: 1"},
    {"ST 259: 2.7 reserved", 0x81860001U, "Reserved bit not 0, Byte 1, Bit 7"},
    {"ST 292-1: p59.94 does not fit 1.5G", 0x85CA2001U, "Invalid picture rate: 10"},
    {"ST 292-1: depth 2 reserved", 0x85C62002U, "Invalid bit depth: 2"},
    {"ST 2048-2: no 2048-wide interlaced", 0x85066001U, "Invalid picture interlace format for 2048: 0"},
    {"ST 292-1: p59.94 as psf", 0x854A8001U, "Invalid picture rate: 10"},
    {"ST 274: i47.95 does not exist", 0x85022001U, "Invalid picture rate for Interlaced: 2"},
    {"ST 372: 4:2:2 needs transport 0", 0x87CA0001U, "Invalid transport interlace format for 422: 1"},
    {"ST 372: 12-bit full range", 0x87CA0003U,
     "Invalid bit depth: 3; Invalid bit depth for 422: 3; Invalid transport interlace format for 422: "
     "1"},
    {"ST 372: 4.7 reserved", 0x874A2081U, "Reserved bit not 0, Byte 3, Bit 7"},
    {"ST 425-1: rate 0", 0x89C08001U, "Invalid picture rate: 0"},
    {"ST 425-1: rate 1", 0x89C18001U, "Invalid picture rate: 1"},
    {"ST 425-1: undefined scan and rate 0", 0x89808001U, "Invalid picture rate: 0"},
    {"ST 425-1: 4.6 reserved", 0x89CA8041U, "Reserved bit not 0, Byte 3, Bit 6"},
    {"ST 425-1: sampling B reserved", 0x89CA0B01U, "Invalid sampling structure: 11"},
    {"ST 425-1: rate 12 in 89h", 0x89CC8001U, "Invalid picture rate: 12"},
    // Faults by ST 425-1 that the closed check of 89h lets pass.
    {"ST 425-1: plain 4:2:2 at 25 on 89h", 0x89C58001U, ""},
    {"ST 425-1: 12 bits at 59.94 on 89h", 0x89CAE002U, ""},
    {"ST 425-1: colourimetry 1 on 89h", 0x89DA9001U, ""},
    {"ST 425-1: no 4:2:2 on 88h", 0x88CA8001U, "Invalid sampling structure: 0"},
    {"ST 425-3: 30 frames at most", 0x96CA2001U, "Invalid picture rate: 10"},
    {"ST 2081-10: 30 frames at most", 0xC0CAE001U, "Invalid picture rate: 10"},
    {"ST 2081-10: 10 bits at most", 0xC0C58002U, "Invalid bit depth: 2"},
    {"ST 2082-10: progressive only", 0xCE0B8002U,
     "Invalid picture rate for Extended colour modes: 11; Invalid picture interlace format: 0"},
    {"ST 2082-10: sampling F reserved", 0xCECACF01U, "Invalid sampling structure: 15"},
    {"ST 2082-12: no 8192, 12 bits at 60", 0xD2CBC002U,
     "Invalid horizontal pixel array size: 1; Invalid picture rate for Extended colour modes: 11"},
    {"ST 2082-10: one link, channel 0", 0xCECAA021U, "Invalid channel: 1"},
    {"ST 2081-11: link 3 of two", 0xC2CAA041U, "Invalid channel: 2"},
    {"ST 425-5: audio of link 1 is no copy", 0x97CAA005U, "Invalid audio copy status: 1"},
    {"ST 425-5: audio of link 2 may be one", 0x97CAA045U, ""},
    {"ST 425-3: audio of stream 2 is no copy", 0x96C52045U, "Invalid audio copy status: 1"},
    {"ST 425-3: audio of stream 3 may be one", 0x96C52085U, ""},
    {"ST 425-5 B: audio of stream 2 is no copy", 0x984A2025U, "Invalid audio copy status: 1"},
    {"ST 425-5 B: audio of stream 3 may be one", 0x984A2045U, ""},
    {"ST 2082-12: audio of link 1 is no copy", 0xD2CBA005U, "Invalid audio copy status: 1"},
    {"ST 2082-12: audio of link 2 may be one", 0xD2CBA025U, ""},
    {"ST 2082-10: the stream is not told", 0xCECAA005U, ""},
    {"ST 425-5: 4:2:2 p59.94 level B needs transport 0", 0x98CA2001U,
     "Invalid transport interlace format: 1"},
    {"ST 425-5: RGB p25 level B needs transport 1", 0x98452201U, "Invalid transport interlace format: 0"},
    {"ST 2036-1: no 3840-wide p48", 0x97C88001U, "Invalid picture rate for 422 and 420: 8"},
    {"ST 425-1: 4:4:4:4 has no 12 bits", 0x8AC52602U, "Invalid bit depth for this sampling structure: 2"},
    {"ST 425-1: X'Y'Z' has no 10 bits", 0x8AC52E01U, "Invalid bit depth for this sampling structure: 1"},
    {"unsupported byte 1", 0x8C062001U, "Error packet does not match any supported type"},
    {"first edition", 0x01020304U, "Error packet does not match any supported type"},
};

} // namespace

class tst_PayloadIdentifierChecks : public WzTest {
    Q_OBJECT

private slots:
    void faultyIdentifiers_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<QString>("errors");
        for (const FaultyIdentifier& row : kFaulty)
            QTest::newRow(row.name) << row.word << QString::fromLatin1(row.errors);
    }
    void faultyIdentifiers()
    {
        QFETCH(unsigned, word);
        const auto id = makePayloadIdentifier(word);
        QStringList errors = id->doSmpteValidationChecks();
        if (id->family())
            errors += id->doReservedBitsChecks();
        QTEST(errors.join(QStringLiteral("; ")), "errors");
    }

    /// The closed rules of dual-link 1.5G, one row for each.
    void dualLinkRules_data()
    {
        QTest::addColumn<unsigned>("word");
        QTest::addColumn<QString>("errors");
        const auto row = [](const char* name, unsigned word, const char* errors) {
            QTest::newRow(name) << word << QString::fromLatin1(errors);
        };
        row("4:2:2 p59.94", 0x874A2001U, "");
        row("4:2:2 at 24", 0x87432001U, "");
        row("4:2:2 at 23.98", 0x87422001U, "Invalid picture rate for 1920 pixel 422: 2");
        row("4:2:2 2048 at 47.95", 0x87444001U, "");
        row("4:2:2 2048 at 25", 0x87454001U, "Invalid picture rate for 2048 pixel 422: 5");
        row("4:2:2 interlaced", 0x87092001U, "Invalid picture interlace format for 422: 0");
        row("4:2:2 12-bit", 0x874A2002U, "Invalid bit depth for 422: 2");
        row("full range", 0x87452200U, "Invalid bit depth: 0");
        row("rate 12", 0x874C2001U, "Invalid picture rate: 12");
        row("X'Y'Z'", 0x87C36E02U, "Invalid sampling structure: 14");
        row("RGB p25", 0x87C52201U, "");
        row("RGB p50", 0x87C92201U,
            "Invalid picture rate for Progressive 1920 pixel Extended colour modes: 9");
        row("RGB i50", 0x87052201U, "");
        row("RGB i48", 0x87032201U,
            "Invalid picture rate for Interlaced 1920 pixel Extended colour modes: 3");
        row("RGB 2048 p48", 0x87C84201U, "");
        row("RGB 2048 interlaced", 0x87054201U,
            "Invalid picture interlace format for 2048 Extended colour modes: 0");
    }
    void dualLinkRules()
    {
        QFETCH(unsigned, word);
        const PayloadIdentifier1080_DualLink1g5 id(word);
        QTEST(id.doSmpteValidationChecks().join(QStringLiteral("; ")), "errors");
    }

    void everyFamilyRefusesAnothersByte1_data()
    {
        QTest::addColumn<unsigned>("byte1");
        for (const PayloadFamily* family : PayloadFamilies::kAll)
            QTest::addRow("%02X", family->byte1) << unsigned{family->byte1};
    }
    void everyFamilyRefusesAnothersByte1()
    {
        QFETCH(unsigned, byte1);
        const std::uint32_t word = (byte1 ^ 0x40U) << 24;
        const QString error = QStringLiteral("Incorrect payload identifier: %1").arg(byte1 ^ 0x40U);
        bool asked = false;
        const auto ask = [&](const PayloadIdentifierBase& id) {
            if (id.family()->byte1 != byte1)
                return;
            asked = true;
            QVERIFY(!id.hasCorrectpayloadAndDigitalInterface());
            QCOMPARE(id.doSmpteValidationChecks().value(0), error);
        };
        ask(PayloadIdentifierSd_270m(word));
        ask(PayloadIdentifier720_1g5(word));
        ask(PayloadIdentifier1080_1g5(word));
        ask(PayloadIdentifier1080_DualLink1g5(word));
        ask(PayloadIdentifier720_3g(word));
        ask(PayloadIdentifier1080_3g(word));
        ask(PayloadIdentifier1080_Levelb3g(word));
        ask(PayloadIdentifier2160_DualLinkLevelb3g(word));
        ask(PayloadIdentifier2160_QuadLink3g(word));
        ask(PayloadIdentifier2160_QuadLinkLevelb3g(word));
        ask(PayloadIdentifier2160_6g(word));
        ask(PayloadIdentifier2160_DualLink6g(word));
        ask(PayloadIdentifier2160_12g(word));
        ask(PayloadIdentifier4320_QuadLink12g_SingleOnly(word));
        QVERIFY(asked);
    }

    void reservedBitsOfTheDefaultMap()
    {
        const auto text = [](int byte, int bit) {
            return QStringLiteral("Reserved bit not 0, Byte %1, Bit %2").arg(byte).arg(bit);
        };
        QCOMPARE(PayloadIdentifierBase(0x00000008U).doReservedBitsChecks(), QStringList{text(3, 3)});
        QCOMPARE(PayloadIdentifierBase(0xFFFFFFFFU).doReservedBitsChecks(),
                 (QStringList{text(2, 4), text(2, 5), text(2, 7), text(3, 2), text(3, 3)}));
    }

    /// The base class knows the families' rules by byte 1.
    void baseClassAsksTheFamily()
    {
        QCOMPARE(PayloadIdentifierBase(0x89C98001U).doSmpteValidationChecks(), QStringList());
        QCOMPARE(PayloadIdentifierBase(0x89C18001U).doSmpteValidationChecks(),
                 QStringList{QStringLiteral("Invalid picture rate: 1")});
    }
};

WZ_TEST_CLASS(tst_PayloadIdentifierChecks)
#include "tst_PayloadIdentifierChecks.moc"
