#include "datacore/nodes/DatacoreActivePictureCrcValuesList.h"
#include "datacore/nodes/DatacoreAudioFlowChannelMap.h"
#include "datacore/nodes/DatacoreAudioFlowDataStruct.h"
#include "datacore/nodes/DatacoreAudioMonitorSelection.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreConnectedNumber.h"
#include "datacore/nodes/DatacoreDolbyMetadataProgramParameters.h"
#include "datacore/nodes/DatacoreFalseColourOverlayRangesSummary.h"
#include "datacore/nodes/DatacoreGrandmasterInfo.h"
#include "datacore/nodes/DatacoreIpAddressV4.h"
#include "datacore/nodes/DatacoreMacAddress.h"
#include "datacore/nodes/DatacoreMacAddressAndValidity.h"
#include "datacore/nodes/DatacoreMulticastRequest.h"
#include "datacore/nodes/DatacoreMulticastStatus.h"
#include "datacore/nodes/DatacoreNumberLimits.h"
#include "datacore/nodes/DatacorePoint.h"
#include "datacore/nodes/DatacorePtpMonitoring.h"
#include "datacore/nodes/DatacoreSdiOutputSlewRate.h"
#include "datacore/nodes/DatacoreVectorscopeUserMarker.h"
#include "datacore/nodes/DatacoreVideoStandard.h"
#include "datacore/nodes/DatacoreVideoStandard2110.h"
#include "datacore/nodes/DatacoreVideoStandard2110AndStatus.h"
#include "datacore/nodes/DatacoreVideoStandard2110Params.h"
#include "datacore/nodes/DatacoreVideoStandardStats.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include "types/ip/Supported2110VideoStandards.h"
#include "types/sdi/SupportedVideoStandards.h"

using Velmora::IpTypes::Supported2110VideoStandards;
using Velmora::Sdi::SupportedVideoStandards;

namespace {

using Maker = std::shared_ptr<DatacoreBase> (*)();

template<typename Node>
std::shared_ptr<DatacoreBase> make()
{
    return std::make_shared<Node>(QStringLiteral("n"), nullptr);
}

template<typename T, int initial, int minimum, int maximum>
std::shared_ptr<DatacoreBase> makeLimits()
{
    return std::make_shared<DatacoreNumberLimits<T>>(QStringLiteral("n"), nullptr, T(initial), T(minimum),
                                                     T(maximum));
}

QStringList items(const QByteArray& text)
{
    return text.isEmpty() ? QStringList() : QString::fromLatin1(text).split(QLatin1Char('|'));
}

/// A struct written into a node reads back as the same, through text alone.
template<typename Node, typename Value>
void roundTrip(const Value& value, const char* expected)
{
    const Node written(QStringLiteral("n"), nullptr, value);
    QCOMPARE(written.getDataList(), items(expected));
    QCOMPARE(written.getClassName(), QString(Value::kNodeClass));
    Node read(QStringLiteral("n"), nullptr);
    read.setDataArray(written.getDataArray());
    std::list<DatacoreValidStatusMessage> messages;
    const auto back = read.getValueAndValidateThatItIsDeserialisable(messages);
    QVERIFY(back && *back == value);
    QVERIFY(messages.empty());
    read.revalidateAll();
    QVERIFY(read.isValid());
}

} // namespace

Q_DECLARE_METATYPE(Maker)

class tst_TypedNodes : public WzTest {
    Q_OBJECT

private slots:
    void problems_data()
    {
        QTest::addColumn<Maker>("maker");
        QTest::addColumn<QStringList>("data");
        QTest::addColumn<QByteArray>("contents");
        const auto row = [](const char* name, Maker maker, const QByteArray& data, const char* contents) {
            QTest::addRow("%s %.60s", name, data.constData()) << maker << items(data) << QByteArray(contents);
        };
        row("bool", make<DatacoreBool>, "true|false", "");
        row("bool", make<DatacoreBool>, "", "21");
        row("bool", make<DatacoreBool>, "True|1|true", "10 10");
        row("uint", make<DatacoreNumber<unsigned int>>, "", "");
        row("uint", make<DatacoreNumber<unsigned int>>, "0|4294967295|4294967296", "");
        row("uint", make<DatacoreNumber<unsigned int>>, "-1|x|18446744073709551616|0x10", "6 6 6 6");
        row("ushort", make<DatacoreNumber<unsigned short>>, "65535|65536", "6");
        row("int", make<DatacoreNumber<int>>, "-2147483648|2147483648|1.0|010", "6 6");
        row("longlong", make<DatacoreNumber<long long>>, "-9223372036854775808|9223372036854775808", "6");
        row("double", make<DatacoreNumber<double>>, "-1.5e3|0|1,5|", "7 7");
        row("limits", makeLimits<unsigned int, 5, 2, 9>, "2|9|1|10|4294967296|x", "6 5 4 4");
        row("limits", makeLimits<int, 0, -2, 2>, "-3|-2|3", "5 4");
        row("limits", makeLimits<double, 0, -2, 2>, "-2.001|2", "5");

        row("mac", make<DatacoreMacAddress>, "00:1a:2B:3c:4d:5e", "");
        row("mac", make<DatacoreMacAddress>, "00-1a-2b-3c-4d-5e", "");
        for (const char* bad :
             {"", "00:1a:2b:3c:4d", "00:1a:2b:3c:4d:5g", "001a2b3c4d5e", "00:1a:2b:3c:4d:5e:6f",
              "+0:1a:2b:3c:4d:5e", "00:1a:2b:3c:4d:5e|00:1a:2b:3c:4d:5e"})
            row("mac", make<DatacoreMacAddress>, bad, "32");
        row("mac known", make<DatacoreMacAddressAndValidity>, "00:1a:2b:3c:4d:5e|true", "");
        row("mac known", make<DatacoreMacAddressAndValidity>, "00:1a:2b:3c:4d:5e|yes", "32");
        row("mac known", make<DatacoreMacAddressAndValidity>, "00:1a:2b:3c:4d:5e", "32");
        row("ip", make<DatacoreIpAddressV4>, "192.168.1.10", "");
        row("ip", make<DatacoreIpAddressV4>, "0.0.0.0", "31");
        for (const char* bad :
             {"", "1.2.3", "1.2.3.4.5", "1.2.3.256", "1..2.3", "1.2.3.-4", "1.2.3.+4", "1.2.3. 4"})
            row("ip", make<DatacoreIpAddressV4>, bad, "20");
        row("multicast", make<DatacoreMulticastRequest>, "224.0.2.0|0.0.0.0|5000|true", "");
        row("multicast", make<DatacoreMulticastRequest>, "239.255.255.255|10.0.0.1|65535|true", "");
        row("multicast", make<DatacoreMulticastRequest>, "224.0.1.255|0.0.0.0|5000|true", "34");
        row("multicast", make<DatacoreMulticastRequest>, "223.255.255.255|0.0.0.0|5000|true", "33");
        row("multicast", make<DatacoreMulticastRequest>, "240.0.0.0|0.0.0.0|5000|true", "33");
        row("multicast", make<DatacoreMulticastRequest>, "10.0.0.1|0.0.0.0|5000|false", "");
        row("multicast", make<DatacoreMulticastRequest>, "239.1.1.1|0.0.0.0|65536|true", "20");
        row("multicast status", make<DatacoreMulticastStatus>, "239.1.1.1|true|-1", "20");
        row("point", make<DatacorePoint>, "-1|2147483647", "");
        row("point", make<DatacorePoint>, "1|2.5", "8");
        row("point", make<DatacorePoint>, "1|2|3", "8");
        row("crc", make<DatacoreActivePictureCrcValuesList>, "", "");
        row("crc", make<DatacoreActivePictureCrcValuesList>, "1|2|3", "14");
        row("crc", make<DatacoreActivePictureCrcValuesList>, "1|65536", "14");
        row("grandmaster", make<DatacoreGrandmasterInfo>, "id|256|6|33|20061|128|1|160", "15");
        row("channels", make<DatacoreAudioFlowChannelMap>, "0|0|0|1|0|0", "");
        row("channels", make<DatacoreAudioFlowChannelMap>, "0|0|0|0|1|0|0|1|1", "23");
        row("channels", make<DatacoreAudioFlowChannelMap>, "0|0", "16");
        row("flows", make<DatacoreAudioFlowDataStruct>, "name|2|48000|x", "17");
        row("ptp", make<DatacorePtpMonitoring>, "", "18");
        row("false colour", make<DatacoreFalseColourOverlayRangesSummary>, "true|2|1|#ffffff", "27");
        row("false colour", make<DatacoreFalseColourOverlayRangesSummary>, "true|nan|1|#ffffff", "27");
        row("false colour", make<DatacoreFalseColourOverlayRangesSummary>, "1|1|2|#ffffff", "12");
        row("slew rate", make<DatacoreSdiOutputSlewRate>, "hd", "9");
        row("dolby", make<DatacoreDolbyMetadataProgramParameters>, "0|P|2|0|32|true", "26");
        row("dolby", make<DatacoreDolbyMetadataProgramParameters>, "0|P|2|0|27", "50");
        row("marker", make<DatacoreVectorscopeUserMarker>, "true|0.5|-0.51", "26");
        row("marker", make<DatacoreVectorscopeUserMarker>, "true|0.5", "20");
        row("monitor", make<DatacoreAudioMonitorSelection>, "0|-1|0", "26");

        row("standard", make<DatacoreVideoStandard>, "false|85ca8001", "");
        row("standard", make<DatacoreVideoStandard>, "true|89C98001|89C98001|89C98001|89C98001", "");
        row("standard", make<DatacoreVideoStandard>, "false", "25");
        row("standard", make<DatacoreVideoStandard>, "false|01000000", "26");
        row("standard", make<DatacoreVideoStandard>, "false|97CA8001|85CA8041", "26");
        row("standard", make<DatacoreVideoStandard>,
            "false|98C98001|98C98001|98C98001|98C98001|98C98001|98C98001|98C98001|98C98001|98C98001", "22");
        for (const char* bad : {"", "85CA8001", "false|85CA800", "false|0x85CA80", "false|85CA8001|"})
            row("standard", make<DatacoreVideoStandard>, bad, "29");

        const auto format = [](const char* size, const char* content, const char* scan,
                               const char* rate) -> QByteArray {
            return QByteArray(size) + '|' + content + '|' + scan + "|SDR|" + rate;
        };
        const auto row2110 = [&](const QByteArray& data, const char* chosen, const char* asParameters) {
            row("2110", make<DatacoreVideoStandard2110>, data, chosen);
            row("2110 parameters", make<DatacoreVideoStandard2110Params>, data, asParameters);
            row("2110 received", make<DatacoreVideoStandard2110AndStatus>, data + "|true|true", asParameters);
        };
        const char* usual = "YCbCr-4:2:2|10|NARROW|BT709";
        row2110(format("1920|1080", usual, "false|false", "50|1"), "", "");
        row2110(format("32767|1", usual, "false|false", "50|1"), "26", "");
        row2110(format("32768|1", usual, "false|false", "50|1"), "26", "43");
        row2110(format("0|1080", usual, "false|false", "50|1"), "26", "43");
        row2110(format("1920|1080", usual, "false|false", "50|0"), "26", "43");
        row2110(format("1920|1080", usual, "true|true", "25|1"), "", "");
        row2110(format("1920|1080", usual, "false|true", "25|1"), "26", "43");
        row2110(format("1920|1080", "YCbCr-4:2:0|10|NARROW|BT709", "false|false", "50|1"), "26", "");
        row2110(format("1920|1080", "YCbCr-4:2:0|10|NARROW|BT709", "true|false", "25|1"), "26", "43");
        row2110(format("1920|1080", "RGB|16f|FULLPROTECT|BT2020", "false|false", "50|1"), "26", "");
        row2110(format("1920|1080", "RGB|16f|FULLPROTECT|BT2100", "false|false", "50|1"), "26", "43");
        row2110(format("1920|1080", "rgb|10|NARROW|BT709", "false|false", "50|1"), "30", "30");
        row2110(format("1920|1080", "RGB|11|NARROW|BT709", "false|false", "50|1"), "30", "30");
        row2110(format("-1|1080", usual, "false|false", "50|1"), "30", "30");
        row2110(format("1920|1080", usual, "false|false", "50"), "30", "30");
        const QByteArray good = format("1920|1080", usual, "false|false", "50|1");
        row("2110 received", make<DatacoreVideoStandard2110AndStatus>, good + "|true|false", "44");
        row("2110 received", make<DatacoreVideoStandard2110AndStatus>, good + "|false|false", "");
        row("2110 received", make<DatacoreVideoStandard2110AndStatus>, good, "30");
        row("stats", make<DatacoreVideoStandardStats>, "18446744073709551615|0|0|0.5", "");
        row("stats", make<DatacoreVideoStandardStats>, "1|0|-0.1|0", "5");
        row("stats", make<DatacoreVideoStandardStats>, "1|0|0|nan", "5");
        row("stats", make<DatacoreVideoStandardStats>, "-1|0|0|0", "48");
    }
    void problems()
    {
        QFETCH(Maker, maker);
        QFETCH(QStringList, data);
        const auto node = maker();
        node->setDataList(data);
        // What stood there before must go.
        node->setValid({DatacoreValidStatusMessage(40)});
        node->revalidateAll();
        QByteArray contents;
        for (const auto& message : node->getReasonsForBeingInvalid()) {
            QCOMPARE(int(message.getType()), 2);
            contents += QByteArray::number(message.getIdentifier()) + ' ';
        }
        QTEST(contents.trimmed(), "contents");
    }

    void structs()
    {
        roundTrip<DatacoreMacAddress>(MacAddressValue{{0, 0x1a, 0xff, 3, 4, 5}}, "00:1a:ff:03:04:05");
        roundTrip<DatacoreMacAddressAndValidity>(MacAddressAndValidityValue{{{1, 2, 3, 4, 5, 6}}, true},
                                                 "01:02:03:04:05:06|true");
        roundTrip<DatacoreIpAddressV4>(IpAddressV4Value{0xC0A8010A}, "192.168.1.10");
        roundTrip<DatacoreMulticastRequest>(MulticastRequestValue{{0xEF010203}, {0x0A000001}, 5004, true},
                                            "239.1.2.3|10.0.0.1|5004|true");
        roundTrip<DatacoreMulticastStatus>(MulticastStatusValue{{0xEF010203}, false, 18446744073709551615ULL},
                                           "239.1.2.3|false|18446744073709551615");
        roundTrip<DatacorePoint>(PointValue{-1, 2}, "-1|2");
        roundTrip<DatacorePtpMonitoring>(
            PtpMonitoringValue{QStringLiteral("SLAVE"), 127, -0.1, 1e-7, QStringLiteral("id"), true},
            "SLAVE|127|-0.1|1e-07|id|true");
        roundTrip<DatacoreGrandmasterInfo>(
            GrandmasterInfoValue{QStringLiteral("id"), 128, 6, 33, 20061, 127, 1, 32},
            "id|128|6|33|20061|127|1|32");
        roundTrip<DatacoreAudioMonitorSelection>(AudioMonitorSelectionValue{1, 14, 15}, "1|14|15");
        roundTrip<DatacoreAudioFlowChannelMap>(AudioFlowChannelMapValue{{{0, 1, 2}, {3, 4, 5}}},
                                               "0|1|2|3|4|5");
        roundTrip<DatacoreAudioFlowDataStruct>(AudioFlowDataList{{{QStringLiteral("a b"), 8, 48000, 125}}},
                                               "a b|8|48000|125");
        roundTrip<DatacoreActivePictureCrcValuesList>(ActivePictureCrcValuesList{{{1, 65535}, {2, 3}}},
                                                      "1|65535|2|3");
        roundTrip<DatacoreDolbyMetadataProgramParameters>(
            DolbyMetadataProgramParametersValue{0, QStringLiteral("Main"), 7, 0, 27, true},
            "0|Main|7|0|27|true");
        roundTrip<DatacoreFalseColourOverlayRangesSummary>(
            FalseColourOverlayRangesSummaryStruct{{{true, -7.5, 109.2, QStringLiteral("#00ff00")}}},
            "true|-7.5|109.2|#00ff00");
        roundTrip<DatacoreSdiOutputSlewRate>(
            SdiOutputSlewRateValue{SdiOutputSlewRateValue::Rate::StandardDefinition}, "SD");
        roundTrip<DatacoreVectorscopeUserMarker>(VectorscopeUserMarkerValue{true, 0.25, -0.5},
                                                 "true|0.25|-0.5");
        roundTrip<DatacoreVideoStandardStats>(VideoStandardStatsValue{7, 1, 3600.5, 0.04}, "7|1|3600.5|0.04");
    }

    /// Every standard that there is goes through its node.
    void standards()
    {
        const SupportedVideoStandards supported;
        for (const auto* standard : supported.getSupportedAnalyserStandards()) {
            const DatacoreVideoStandard node(QStringLiteral("n"), nullptr, VideoStandardValue::of(*standard));
            std::list<DatacoreValidStatusMessage> messages;
            const auto back = node.getValueAndValidateThatItIsDeserialisable(messages)->toStandard();
            QCOMPARE(back->getStandardAsReferenceString(), standard->getStandardAsReferenceString());
            node.regenerateInvalidationStatusMessages(messages);
            QVERIFY2(messages.empty(), qPrintable(standard->getStandardAsReferenceString()));
        }
        for (const auto& standard : Supported2110VideoStandards::instance().getSupportedStandards()) {
            const DatacoreVideoStandard2110Params node(QStringLiteral("n"), nullptr, {standard});
            std::list<DatacoreValidStatusMessage> messages;
            node.regenerateInvalidationStatusMessages(messages);
            QVERIFY2(messages.empty(), qPrintable(standard.getStandardAsShortText()));
            QVERIFY(node.getValueAndValidateThatItIsDeserialisable(messages)->params == standard);
        }
    }

    void numbers()
    {
        DatacoreNumber<unsigned int> number(QStringLiteral("n"), nullptr, 7U);
        QCOMPARE(number.getDataNumber(), 7U);
        number.setDataNumberArray({1, 4294967295U});
        QCOMPARE(number.getDataArray(),
                 (std::deque<QString>{QStringLiteral("1"), QStringLiteral("4294967295")}));
        number.setDataList(items("4294967296|x"));
        QCOMPARE(number.getDataNumberArray(), (std::deque<unsigned int>{4294967295U, 0U}));
        DatacoreNumber<double> real(QStringLiteral("n"), nullptr, 0.1);
        QCOMPARE(real.getData(), QStringLiteral("0.1"));
        DatacoreBool flags(QStringLiteral("n"), nullptr, std::deque<bool>{true, false});
        QCOMPARE(flags.getDataBoolArray(), (std::deque<bool>{true, false}));
        flags.setDataBool(false);
        QCOMPARE(flags.getDataArray(), std::deque<QString>{QStringLiteral("false")});
    }

    void connectedNumbersTakeEffectWhenValid()
    {
        DatacoreBase root(QStringLiteral("r"), nullptr);
        DatacoreConnectedNumber<int> number(QStringLiteral("n"), &root, 5);
        std::vector<int> received;
        root.applyDefaultStateToSystem();
        number.connectTo([&](int value) { received.push_back(value); });
        root.applyDefaultStateToSystem();
        number.setData(QStringLiteral("x"));
        root.applyDefaultStateToSystem();
        QCOMPARE(received, std::vector<int>{5});
    }
};

WZ_TEST_CLASS(tst_TypedNodes)
#include "tst_TypedNodes.moc"
