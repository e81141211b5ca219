#include "network/RawDataPacket.h"
#include "network/RawDataPacketFactory.h"
#include "network/packets/AudioChannelStatusDataPacket.h"
#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"
#include "network/packets/RegisterRawDataPacket.h"

#include "support/Frames.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QDataStream>

#include <limits>
#include <typeinfo>

using MeterValue = AudioProcessingRegisterApi::MeterValue<float>;

class tst_RawDataPacket : public WzTest {
    Q_OBJECT

private slots:
    void peeksHeader_data()
    {
        QTest::addColumn<QByteArray>("buffer");
        QTest::addColumn<quint16>("identifier");
        const QByteArray frame = Frames::raw(0x1013, "payload");
        QTest::newRow("whole") << frame << quint16(0x1013);
        QTest::newRow("one byte short")
            << frame.left(frame.size() - 1) << quint16(RawDataPacket::PID_INCOMPLETE);
        QTest::newRow("header alone") << frame.left(16) << quint16(RawDataPacket::PID_INCOMPLETE);
        QTest::newRow("identifier alone") << frame.left(10) << quint16(RawDataPacket::PID_INCOMPLETE);
        QTest::newRow("half an identifier") << frame.left(9) << quint16(RawDataPacket::PID_INVALID);
        QTest::newRow("nothing") << QByteArray() << quint16(RawDataPacket::PID_INVALID);
        QTest::newRow("wrong magic") << "\xCB" + frame.mid(1) << quint16(RawDataPacket::PID_INVALID);
        QTest::newRow("below the first") << Frames::raw(0x100F, "") << quint16(RawDataPacket::PID_INVALID);
        QTest::newRow("first") << Frames::raw(0x1010, "") << quint16(0x1010);
        QTest::newRow("last") << Frames::raw(0x102B, "") << quint16(0x102B);
        QTest::newRow("behind the last") << Frames::raw(0x102C, "") << quint16(RawDataPacket::PID_INVALID);
        QTest::newRow("4 GiB claim") << Frames::header(0x1013, 0xFFFFFFFF) + QByteArray(64, 'x')
                                     << quint16(RawDataPacket::PID_INCOMPLETE);
        QTest::newRow("claim that wraps to 0 in 32 bits") << Frames::header(0x1013, 0xFFFFFFEC)
                + QByteArray(64, 'x') << quint16(RawDataPacket::PID_INCOMPLETE);
    }
    void peeksHeader()
    {
        QFETCH(QByteArray, buffer);
        const auto header = RawDataPacket::peekHeader(buffer);
        QTEST(quint16(header.packetIdentifier), "identifier");

        QDataStream stream(buffer);
        const auto asRead = RawDataPacket::readHeaderFromStream(stream);
        QCOMPARE(header.magic, asRead.magic);
        QCOMPARE(header.sourceInstanceIdentifier, asRead.sourceInstanceIdentifier);
        QCOMPARE(header.payloadSize, asRead.payloadSize);
    }

    void headerFieldsKeepTheirPlaces()
    {
        const QByteArray bytes = QByteArray::fromHex("cafeba6e1f00d321"
                                                     "1020"
                                                     "0102"
                                                     "00000003"
                                                     "616263"
                                                     "deadbeef");
        const auto header = RawDataPacket::peekHeader(bytes);
        QCOMPARE(header.sourceInstanceIdentifier, quint16(0x0102));
        QCOMPARE(header.payloadSize, 3u);

        QByteArray written;
        QDataStream stream(&written, QIODevice::WriteOnly);
        RawDataPacket::writeHeaderToDataStream(header, stream);
        QCOMPARE(written, bytes.left(16));

        const AudioChannelStatusDataPacket packet(bytes, header);
        QCOMPARE(packet.getHeaderFromPacket().sourceInstanceIdentifier, quint16(0x0102));
        QCOMPARE(packet.getPayloadFromPacket(), QByteArray("abc"));
        QCOMPARE(Frames::of(packet), Frames::raw(0x1020, "abc"));
    }

    void registrationLayout()
    {
        const RegisterRawDataPacket request(0x1011, 0xC0A8010A, 29442);
        QCOMPARE(request.getSerialisedPayloadForTransmit(), QByteArray::fromHex("10117302c0a8010a"));

        const QByteArray frame = Frames::of(request);
        const DeregisterRawDataPacket read(frame, RawDataPacket::peekHeader(frame));
        QCOMPARE(quint16(read.getRawDataPacketID()), quint16(0x1011));
        QCOMPARE(read.getDstAddr(), 0xC0A8010Au);
        QCOMPARE(read.getDstPort(), quint16(29442));
        QByteArray appended;
        request.appendFrameTo(appended);
        QCOMPARE(appended, frame);

        const QByteArray shortFrame = Frames::raw(0x102A, QByteArray::fromHex("10117302c0a801"));
        const RegisterRawDataPacket cut(shortFrame, RawDataPacket::peekHeader(shortFrame));
        QCOMPARE(quint16(cut.getRawDataPacketID()), quint16(0));
    }

    void metersAreWrittenAsADataStreamWould()
    {
        const std::vector<MeterValue> values{
            {3, 1, 2, 0, -18.25F}, {255, 0, 0, 7, -99.0F}, {0, 0, 0, 0, 0.1F}};
        const PpmMetersData packet(values, 0x00FF, 0x0F00, 42);

        QByteArray expected;
        QDataStream stream(&expected, QIODevice::WriteOnly);
        stream << quint32(42) << quint32(0x00FF) << quint32(0x0F00) << quint32(values.size());
        for (const auto& value : values)
            stream << quint32(value.channel) << value.pair << value.source << value.flags << value.value;
        QCOMPARE(packet.getSerialisedPayloadForTransmit(), expected);

        const QByteArray frame = Frames::of(packet);
        const PpmMetersData read(frame, RawDataPacket::peekHeader(frame));
        QVERIFY(read.getMeterValues() == values);
        QCOMPARE(read.getSequenceNumber(), 42u);
        QCOMPARE(read.getPairPresenceBits(), 0x00FFu);
        QCOMPARE(read.getPairPresenceBitsLinkBOrAes(), 0x0F00u);
    }

    void damagedMetersHaveNoValues_data()
    {
        QTest::addColumn<QByteArray>("payload");
        const QByteArray whole =
            PhaseMetersData({{1, 2, 3, 4, 5.0F}}, 1, 2, 3).getSerialisedPayloadForTransmit();
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no count") << whole.left(15);
        QTest::newRow("last byte missing") << whole.left(whole.size() - 1);
        QTest::newRow("4 G values") << whole.left(12) + QByteArray::fromHex("ffffffff")
                + QByteArray(240, '\0');
        QTest::newRow("count that wraps to 0 in 32 bits")
            << whole.left(12) + QByteArray::fromHex("20000000") + QByteArray(240, '\0');
    }
    void damagedMetersHaveNoValues()
    {
        QFETCH(QByteArray, payload);
        const QByteArray frame = Frames::raw(0x1015, payload);
        QVERIFY(PhaseMetersData(frame, RawDataPacket::peekHeader(frame)).getMeterValues().empty());
    }

    void factoryMakesTheClassOfEachIdentifier()
    {
        std::vector<const std::type_info*> types;
        for (quint16 identifier = 0x1010; identifier <= 0x102B; ++identifier) {
            const QByteArray frame =
                identifier == 0x1010 ? Frames::json("{}") : Frames::raw(identifier, "12345678");
            const auto packet = RawDataPacketFactory::createPacket(frame, RawDataPacket::peekHeader(frame));
            QVERIFY(packet);
            QCOMPARE(quint16(packet->getPacketIdentifier()), identifier);
            const RawDataPacket& made = *packet;
            for (const auto* other : types)
                QVERIFY(*other != typeid(made));
            types.push_back(&typeid(made));
        }
    }

    void factoryRefusesWhatIsNoPacket()
    {
        const QByteArray frame = Frames::raw(0x1013, QByteArray(16, 'x'));
        auto header = RawDataPacket::peekHeader(frame);
        QVERIFY(!RawDataPacketFactory::createPacket(frame.left(31), header));
        QVERIFY(RawDataPacketFactory::createPacket(frame.left(32), header));
        header.packetIdentifier = static_cast<RawDataPacket::PacketIdentifier>(0x102C);
        QVERIFY(!RawDataPacketFactory::createPacket(frame, header));
        header.packetIdentifier = RawDataPacket::PID_INCOMPLETE;
        QVERIFY(!RawDataPacketFactory::createPacket(frame, header));
        header.packetIdentifier = RawDataPacket::PID_PPM_METERS;
        header.payloadSize = std::numeric_limits<quint32>::max();
        QVERIFY(!RawDataPacketFactory::createPacket(frame, header));
    }
};

WZ_TEST_CLASS(tst_RawDataPacket)
#include "tst_RawDataPacket.moc"
