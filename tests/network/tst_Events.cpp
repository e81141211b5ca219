#include "network/events/EventPacketFactory.h"
#include "network/events/EventReplayFilter.h"
#include "network/events/NMOSEventPacket.h"
#include "network/events/PtpEventPacket.h"
#include "network/events/ReferenceLockingEventPacket.h"
#include "network/events/RestApiRequestEventPacket.h"
#include "network/events/SdiInputRateChangeEventPacket.h"
#include "network/events/SdiJitterAlignmentRangeConformanceEventPacket.h"
#include "network/events/SdiJitterTimingRangeConformanceEventPacket.h"
#include "network/events/SequencePackagedLogPacket.h"
#include "network/events/SfpEventPacket.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QJsonParseError>
#include <QSet>
#include <QSignalSpy>

#include <ctime>

namespace {

using Handler = WzClientSequencePackagedLogPacketHandler;

SerialisableDataPacket packetOf(const QByteArray& json)
{
    QJsonParseError error;
    return SerialisableDataPacket::deserialise(json, error);
}

/// The event of the class with these members besides.
SerialisableDataPacket eventPacket(const QByteArray& className, const QByteArray& members)
{
    return packetOf("{\"Class\":\"" + className + '"' + (members.isEmpty() ? "" : ",") + members + '}');
}

/// An outer packet of members as they stand in JSON.
SerialisableDataPacket outerPacket(const QByteArray& logPacket, const QByteArray& date,
                                   const QByteArray& msecs)
{
    return packetOf("{\"Class\":\"SequencePackagedLogPacket\",\"logPacket\":" + logPacket
                    + ",\"julianDate\":" + date + ",\"msecsSinceStartOfDay\":" + msecs + '}');
}

QString messageOf(const SerialisableDataPacket& packet)
{
    const auto event = EventPacketFactory::createEventFromSerialisedDataPacket(packet);
    return event ? event->getEventCustomMessage() : QStringLiteral("no event");
}

/// What a handler emits, as texts in order.
struct HandlerProbe {
    HandlerProbe()
    {
        QObject::connect(&handler, &Handler::resetEventLog, &handler,
                         [this] { heard << QStringLiteral("reset"); });
        QObject::connect(&handler, &Handler::newLogEntry, &handler,
                         [this](const QString& entry) { heard << entry; });
        QObject::connect(&handler, &Handler::newLogEvent, &handler,
                         [this](EventKind kind, const QDateTime& at, const QString& message) {
                             time = at;
                             heard << eventKindName(kind) + QLatin1Char('|') + message;
                         });
    }
    Handler handler;
    QStringList heard;
    QDateTime time;
};

/// Local time is that of the zone while the object lives.
struct TimeZone {
    explicit TimeZone(const char* name)
        : before(qgetenv("TZ"))
    {
        qputenv("TZ", name);
        tzset();
    }
    ~TimeZone()
    {
        before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
        tzset();
    }
    QByteArray before;
};

constexpr char kReset[] = "{\"Class\":\"LoggerResetEventPacket\"}";
constexpr char kNoon[] = "43200000";
constexpr char kDay[] = "2460400"; // 30 March 2024

} // namespace

class tst_Events : public WzTest {
    Q_OBJECT

private slots:
    void messages_data()
    {
        QTest::addColumn<QByteArray>("className");
        QTest::addColumn<QByteArray>("members");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* className, const char* members, const char* message) {
            QTest::addRow("%s %s", className, members)
                << QByteArray(className) << QByteArray(members) << QString::fromUtf8(message);
        };
        row("LoggerResetEventPacket", "", "Event Logging Reset");
        row("SCTE104EventPacket", "\"SCTE104\":\"splice %1\"", "splice %1");
        row("SCTE104EventPacket", "\"scte104\":\"x\"", "");
        row("AudioInputPresenceChangeEventPacket", "\"audio_in_presence\":\"8 \xC3\xA4\"", "8 ä");
        row("SfpEventPacket", "\"Sfp\":5", "");
        row("SfpEventPacket", "\"Sfp\":\"SFP 1 removed\"", "SFP 1 removed");
        row("IpInterfacesEventPacket", "\"Ip_Interfaces\":\"up\"", "up");
        row("IpRxEventPacket", "\"Ip_Rx\":\"lost\"", "lost");
        row("IpRxEventPacket", "\"Ip_Tx\":\"lost\"", "");
        row("IpTxEventPacket", "\"Ip_Tx\":\"sent\"", "sent");
        row("ReferenceLockingStandardChangeEventPacket", "\"reference_standard\":\"1080i50\"", "1080i50");
        row("SdiInputVideoStandardChangeEventPacket", "\"standard\":\"1080p50\"",
            "New SDI video standard 1080p50");
        row("SdiInputVideoStandardChangeEventPacket", "", "New SDI video standard ");

        const auto rate = [&](const char* members, const char* end) {
            row("SdiInputRateChangeEventPacket", members,
                QByteArray("New rate on " + QByteArray(end)).constData());
        };
        rate("\"channel\":4,\"rate\":2", "2022-6 In - 3G");
        rate("\"rate\":0", "SDI In A - 12G");
        rate("\"channel\":0", "SDI In A - No Signal");
        rate("\"channel\":3,\"rate\":4", "SDI In D - 270M");
        rate("\"channel\":5,\"rate\":5", "Error - No Signal");
        rate("\"channel\":-1,\"rate\":6", "Error - Unknown");
        // Numbers that a 32-bit integer does not hold, or no integer does, are not 0.
        rate("\"channel\":4294967296,\"rate\":-4294967296", "Error - Unknown");
        rate("\"channel\":1e300,\"rate\":0.5", "Error - Unknown");
        rate("\"channel\":\"1\",\"rate\":null", "Error - Unknown");

        row("RestApiRequestEventPacket",
            "\"rest_method\":\"%2\",\"rest_resource\":\"/a%203%1\",\"rest_address\":\"::1\"",
            "Request %2 for resource /a%203%1 received from ::1");
        row("RestApiRequestEventPacket", "", "Request  for resource  received from ");

        const char* const alignment = "SdiJitterTimingAlignmentOutOfRangeEventPacket";
        const char* const timing = "SdiJitterTimingTimingOutOfRangeEventPacket";
        row(alignment, "\"alignement_jitter_status\":true,\"alignment_jitter_value\":\"0.1 UI\"",
            "Alignment Jitter ok: 0.1 UI");
        row(alignment, "\"alignement_jitter_status\":\"true\",\"alignment_jitter_value\":0.1",
            "Alignment Jitter ok: 0.1");
        row(alignment, "\"alignement_jitter_status\":false,\"alignment_jitter_value\":2",
            "Alignment Jitter out of spec: 2");
        row(alignment, "\"alignment_jitter_status\":true", "Alignment Jitter out of spec: ");
        row(alignment, "\"alignement_jitter_status\":1", "Alignment Jitter out of spec: ");
        row(timing, "\"alignement_jitter_status\":true,\"timing_jitter_value\":\"1\"", "Timing Jitter ok: 1");
        row(timing, "\"timing_jitter_status\":true,\"alignment_jitter_value\":\"1\"",
            "Timing Jitter out of spec: ");

        row("NMOSEventPacket", "", "NMOS ");
        row("NMOSEventPacket", "\"nmos_event\":\"%1\",\"nmos_name\":\"a\"", "NMOS %1: a");
        row("PtpEventPacket", "\"ptp_event\":\"locked\",\"ptp_domain\":\"1\"", "PTP locked");
        row("PtpEventPacket",
            "\"ptp_event\":\"clock_class_changed\",\"ptp_value\":7,\"ptp_previous_value\":6",
            "PTP clock class changed: 6 to 7");

        // C++ names that are not on the wire, and a name in other letters.
        row("ReferenceLockingEventPacket", "\"reference_standard\":\"1080i50\"", "no event");
        row("SdiJitterAlignmentRangeConformanceEventPacket", "", "no event");
        row("SdiJitterTimingRangeConformanceEventPacket", "", "no event");
        row("sfpEventPacket", "\"Sfp\":\"x\"", "no event");
        row("", "", "no event");
    }
    void messages()
    {
        QFETCH(QByteArray, className);
        QFETCH(QByteArray, members);
        QTEST(messageOf(eventPacket(className, members)), "message");
    }

    /// What the instrument writes, a client reads from the bytes.
    void writtenAndRead()
    {
        using Rate = SdiInputRateChangeEventPacket;
        using Ptp = PtpEventPacket;
        using Nmos = NMOSEventPacket;
        const auto read = [](const SerialisableDataPacket& packet) {
            return messageOf(packetOf(packet.serialise()));
        };
        const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
        QCOMPARE(read(Rate(Rate::Input::SdiC, Rate::Rate::Rate1_5G)), text("New rate on SDI In C - 1.5G"));
        QCOMPARE(read(ReferenceLockingEventPacket(text("625i"))), text("625i"));
        QCOMPARE(read(RestApiRequestEventPacket(text("GET"), text("/%1"), text("1.2.3.4"))),
                 text("Request GET for resource /%1 received from 1.2.3.4"));
        QCOMPARE(read(SdiJitterTimingRangeConformanceEventPacket(true, text("0.2 UI"))),
                 text("Timing Jitter ok: 0.2 UI"));
        QCOMPARE(read(SdiJitterAlignmentRangeConformanceEventPacket(false, text("2 UI"))),
                 text("Alignment Jitter out of spec: 2 UI"));
        QCOMPARE(
            read(Nmos(Nmos::Event::Activated, text("sender"), text("Camera 1"), text("activate_immediate"))),
            text("NMOS activated: sender Camera 1 (activate_immediate)"));
        QCOMPARE(read(Nmos(Nmos::Event::AuthorisationRefused, QString(), QString())),
                 text("NMOS authorisation refused"));
        QCOMPARE(read(Ptp(Ptp::Event::UtcOffsetChanged, 127, text("38"), text("37"))),
                 text("PTP UTC offset changed: 37 to 38 (domain 127)"));
    }

    void eachClassHasItsOwnKind()
    {
        QSet<QString> names;
        for (const char* className :
             {"LoggerResetEventPacket", "SCTE104EventPacket", "AudioInputPresenceChangeEventPacket",
              "SfpEventPacket", "IpInterfacesEventPacket", "IpRxEventPacket", "IpTxEventPacket",
              "ReferenceLockingStandardChangeEventPacket", "SdiInputVideoStandardChangeEventPacket",
              "SdiInputRateChangeEventPacket", "RestApiRequestEventPacket",
              "SdiJitterTimingAlignmentOutOfRangeEventPacket", "SdiJitterTimingTimingOutOfRangeEventPacket",
              "NMOSEventPacket", "PtpEventPacket"}) {
            const auto event =
                EventPacketFactory::createEventFromSerialisedDataPacket(eventPacket(className, ""));
            QVERIFY2(event, className);
            names << eventKindName(event->getEventKind());
        }
        QCOMPARE(names.size(), kEventKindCount);
    }

    void entries_data()
    {
        QTest::addColumn<QByteArray>("date");
        QTest::addColumn<QByteArray>("msecs");
        QTest::addColumn<QString>("stamp");
        const auto row = [](const char* date, const char* msecs, const char* stamp) {
            QTest::addRow("%s %s", date, msecs)
                << QByteArray(date) << QByteArray(msecs) << QString::fromLatin1(stamp);
        };
        row(kDay, kNoon, "Sat Mar 30 12:00:00 2024");
        row(kDay, "0", "Sat Mar 30 00:00:00 2024");
        row(kDay, "86399999", "Sat Mar 30 23:59:59 2024");
        row("2460401", "9000000", "Sun Mar 31 03:30:00 2024"); // 02:30 does not happen in the zone
        row(kDay, "86400000", "Unknown time");
        row(kDay, "-1", "Unknown time");
        row(kDay, "1.5", "Unknown time");
        row(kDay, "4294967296", "Unknown time");
        row(kDay, "\"43200000\"", "Unknown time");
        row(kDay, "null", "Unknown time");
        row("5373484", kNoon, "Fri Dec 31 12:00:00 9999");
        for (const char* date :
             {"0", "-1", "5373485", "1e15", "1e300", "9007199254740992", "2460400.5", "[]"})
            row(date, kNoon, "Unknown time");
    }
    void entries()
    {
        QFETCH(QByteArray, date);
        QFETCH(QByteArray, msecs);
        QFETCH(QString, stamp);
        const TimeZone zone("Europe/Berlin");
        HandlerProbe probe;
        probe.handler.acceptPacket(outerPacket("{\"Class\":\"SfpEventPacket\",\"Sfp\":\"%2\"}", date, msecs));
        QCOMPARE(probe.heard, (QStringList{stamp + QStringLiteral(" %2"), QStringLiteral("sfp|%2")}));
        QCOMPARE(probe.time.isValid(), !stamp.startsWith(QLatin1Char('U')));
    }

    void aResetComesBeforeItsEntry()
    {
        HandlerProbe probe;
        probe.handler.acceptPacket(outerPacket(kReset, kDay, kNoon));
        QCOMPARE(probe.heard,
                 (QStringList{QStringLiteral("reset"),
                              QStringLiteral("Sat Mar 30 12:00:00 2024 Event Logging Reset"),
                              QStringLiteral("log-reset|Event Logging Reset")}));
    }

    void noEventNoEntry()
    {
        HandlerProbe probe;
        for (const char* logPacket : {"{\"Class\":\"NewEventPacket\"}", "{}", "[]", "5",
                                      "\"LoggerResetEventPacket\"", "{\"Class\":[\"SfpEventPacket\"]}"})
            probe.handler.acceptPacket(outerPacket(logPacket, kDay, kNoon));
        probe.handler.acceptPacket(SerialisableDataPacket());
        QCOMPARE(probe.heard, QStringList());
    }

    void theTimeSurvivesTheWire()
    {
        const QDateTime time(QDate(2024, 2, 29), QTime(23, 59, 59, 999));
        HandlerProbe probe;
        const SequencePackagedLogPacket packet(SfpEventPacket(QStringLiteral("x")), time.toUTC());
        probe.handler.acceptPacket(packetOf(packet.serialise()));
        QCOMPARE(probe.time, time);
    }

    void repeatsAreThoseOfEarlierConnections()
    {
        EventReplayFilter filter;
        const QDateTime time = QDateTime::currentDateTime();
        const auto isRepeat = [&](const char* message, int later = 0) {
            return filter.isRepeat(EventKind::Sfp, time.addMSecs(later), QString::fromLatin1(message));
        };
        filter.onConnected();
        QVERIFY(!isRepeat("a") && !isRepeat("a"));
        filter.onConnected();
        QVERIFY(isRepeat("a") && !isRepeat("b") && !isRepeat("a", 1));
        QVERIFY(!filter.isRepeat(EventKind::Ptp, time, QStringLiteral("a")));
        filter.onConnected();
        QVERIFY(isRepeat("b") && isRepeat("a"));
        filter.clear();
        QVERIFY(!isRepeat("a"));
        // The oldest are forgotten.
        for (size_t i = 0; i < EventReplayFilter::kMostRemembered; ++i)
            isRepeat("c", static_cast<int>(i));
        filter.onConnected();
        QVERIFY(!isRepeat("a") && isRepeat("c"));
    }
};

WZ_TEST_CLASS(tst_Events)
#include "tst_Events.moc"
