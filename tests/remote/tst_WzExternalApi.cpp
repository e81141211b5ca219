#include "remote/CommandQueue.h"
#include "remote/WzExternalApi.h"

#include "remote/FakeDesk.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QThread>

namespace {

constexpr char kHelp[] = "executeExecutes a command code\n"
                         "calibrate_driver_a Initiates calibration procedure for driver A\n"
                         "calibrate_driver_b Initiates calibration procedure for driver B\n"
                         "calibrate_driver_c Initiates calibration procedure for driver C\n"
                         "calibrate_driver_d Initiates calibration procedure for driver D\n"
                         "get_input_rate_logs Gets the logs for sdi input rate changes\n"
                         "get_input_standard_logs Gets the logs for sdi input standard changes\n"
                         "get_jitter_timing_logs Gets the logs for jitter timing\n"
                         "get_jitter_alignment_logs Gets the logs for jitter alignment\n"
                         "get_reference_locking_standard_change_logs Gets the logs for reference locking "
                         "standard changes\n"
                         "get_ip_tx_logs Gets the logs for IP Tx\n"
                         "get_ip_rx_logs Gets the logs for IP Rx\n"
                         "get_ip_interfaces_logs Gets the logs for IP Interfaces\n"
                         "get_sfp_logs Gets the logs for the SFPs\n"
                         "get_ptp_logs Gets the logs for PTP events\n"
                         "get_audio_presence_logs Gets the logs for audio presence events\n"
                         "get_scte104_logs Gets the logs for SCTE104 events\n"
                         "set_velmeth0_ip Sets velmeth0 ip\n"
                         "set_velmeth1_ip Sets velmeth1 ip\n";

QString text(const char* characters)
{
    return QString::fromUtf8(characters);
}

/// What comes out of the interface, in its order.
struct Transcript {
    explicit Transcript(WzExternalApi& api)
    {
        QObject::connect(&api, &WzExternalApi::newConsoleLine, &api,
                         [this](const QString& line) { events << line; });
        QObject::connect(&api, &WzExternalApi::commandRefused, &api, [this] { events << text("(refused)"); });
        QObject::connect(&api, &WzExternalApi::commandFinished, &api,
                         [this] { events << text("(finished)"); });
    }
    QStringList events;
};

} // namespace

class tst_WzExternalApi : public WzTest {
    Q_OBJECT
private slots:
    void helpIsLetterForLetter() { QCOMPARE(WzExternalApi::HELP(), text(kHelp)); }

    void commandsAreAnswered_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("asked");
        const auto row = [](const char* line, const QStringList& lines, const char* asked) {
            QTest::newRow(line) << text(line) << lines << text(asked);
        };
        row("execute 0", {text("Executing command 0")}, "execute 0");
        row("execute 105", {text("Executing command 105")}, "execute 105");
        row("  execute   007  more ", {text("Executing command 007")}, "execute 7");
        const auto logs = [&row](const char* line, const char* says, const char* asked) {
            row(line, {text(says), text("Logs requested")}, asked);
        };
        logs("get_input_rate_logs", "Requesting SDI input rate logs", "execute 48");
        logs("get_input_standard_logs", "Requesting SDI input standard logs", "execute 49");
        logs("get_jitter_timing_logs", "Requesting jitter alignment logs", "execute 50");
        logs("get_jitter_alignment_logs", "Requesting jitter alignment logs", "execute 51");
        logs("get_reference_locking_standard_change_logs", "Reference Locking logs", "execute 52");
        logs("get_ip_tx_logs", "Requesting IP Tx logs", "execute 53");
        logs("get_ip_rx_logs", "Requesting IP Rx logs", "execute 54");
        logs("get_ip_interfaces_logs", "Requesting IP Interfaces logs", "execute 55");
        logs("get_sfp_logs", "Requesting SFP logs", "execute 56");
        logs("get_ptp_logs", "Requesting PTP logs", "execute 57");
        logs("get_audio_presence_logs", "Requesting Audio Input presence logs", "execute 58");
        logs("get_scte104_logs", "Requesting SCTE104 logs", "execute 59");
        row("set_velmeth0_ip 10.0.0.2 24 10.0.0.1 10.0.0.3 10.0.0.4",
            {text("Set velmEth0 IP addr = 10.0.0.2, mask = 24, gateway IP addr = 10.0.0.1, DNS nameServer0 "
                  "IP addr = 10.0.0.3, DNS nameServer1 IP addr = 10.0.0.4")},
            "persistentConfigCoreRouter/velmEth0/addresses=10.0.0.2,24,10.0.0.1,10.0.0.3,10.0.0.4");
        row("set_velmeth1_ip %2 24 %1 c d e",
            {text("Set velmEth1 IP addr = %2, mask = 24, gateway IP addr = %1, DNS nameServer0 IP addr = c, "
                  "DNS nameServer1 IP addr = d")},
            "persistentConfigCoreRouter/velmEth1/addresses=%2,24,%1,c,d");
    }
    void commandsAreAnswered()
    {
        QFETCH(QString, line);
        QFETCH(QStringList, lines);
        QFETCH(QString, asked);
        WzExternalApi api;
        Transcript transcript(api);
        {
            FakeDesk desk(api);
            api.processCommand(line);
            QCOMPARE(transcript.events, lines + QStringList{text("(finished)")});
            QCOMPARE(desk.asked, QStringList{asked});
            // Refused: the same lines, then the reason.
            transcript.events.clear();
            desk.outcome = CommandOutcome::refused(text("Not today"));
            api.processCommand(line);
            QCOMPARE(transcript.events,
                     lines + QStringList({text("Not today"), text("(refused)"), text("(finished)")}));
        }
        // Nobody is there.
        transcript.events.clear();
        api.processCommand(line);
        QCOMPARE(transcript.events,
                 lines
                     + QStringList(
                         {text("The display client is not ready"), text("(refused)"), text("(finished)")}));
    }

    void othersAreNotRecognised_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("parts");
        const auto row = [](const char* line, const char* parts) {
            QTest::addRow("\"%s\"", line) << text(line) << text(parts);
        };
        row("execute 106", "execute 106 ");
        row("execute", "execute ");
        row("execute abc", "execute abc ");
        row("execute -1", "execute -1 ");
        row("execute 1.0", "execute 1.0 ");
        row("execute 0x10", "execute 0x10 ");
        row("execute 99999999999999999999", "execute 99999999999999999999 ");
        row("calibrate_driver_x", "calibrate_driver_x ");
        row("calibrate_driver_", "calibrate_driver_ ");
        row("get_logs   now", "get_logs now ");
        row("Execute 1", "Execute 1 ");
        row("", "");
        row("   ", "");
    }
    void othersAreNotRecognised()
    {
        QFETCH(QString, line);
        QFETCH(QString, parts);
        WzExternalApi api;
        const FakeDesk desk(api);
        const Transcript transcript(api);
        api.processCommand(line);
        QCOMPARE(
            transcript.events,
            QStringList({text("Unrecognised Command: ") + parts + text("\nCommand list:\n") + text(kHelp),
                         text("(refused)"), text("(finished)")}));
        QVERIFY(desk.asked.isEmpty());
    }

    void addressesNeedFiveArguments()
    {
        for (const char* const name : {"set_velmeth0_ip", "set_velmeth1_ip"}) {
            WzExternalApi api;
            const FakeDesk desk(api);
            const Transcript transcript(api);
            api.processCommand(text(name) + text(" 10.0.0.2 24 10.0.0.1 10.0.0.3"));
            QCOMPARE(transcript.events,
                     QStringList({text("not enough args, need IP addr, mask length, gateway IP addr, DNS "
                                       "nameServer0 IP addr and DNS nameServer1 IP addr"),
                                  text("(refused)"), text("(finished)")}));
            QVERIFY(desk.asked.isEmpty());
        }
    }

    void oneIsCarriedOutAfterTheOther()
    {
        WzExternalApi api;
        FakeDesk desk(api);
        desk.holdsBack = true;
        const Transcript transcript(api);
        api.processCommand(text("execute 1"));
        api.processCommand(text("nonsense"));
        api.processCommand(text("execute 2"));
        QCoreApplication::processEvents();
        QCOMPARE(desk.asked, QStringList{text("execute 1")});
        desk.answerAll();
        QTRY_COMPARE(desk.asked, QStringList({text("execute 1"), text("execute 2")}));
        QCOMPARE(transcript.events.count(text("(finished)")), 2);
        QCOMPARE(transcript.events.last(), text("Executing command 2"));
        // The client ends.
        api.shutDown();
        QCOMPARE(transcript.events.mid(transcript.events.size() - 3),
                 QStringList({text("The display client ends"), text("(refused)"), text("(finished)")}));
        desk.answerAll(); // comes too late
        QCOMPARE(transcript.events.count(text("(finished)")), 3);
    }

    void itWorksOnAThreadOfItsOwn()
    {
        QThread thread;
        auto* const api = new WzExternalApi;
        FakeDesk desk(*api);
        QStringList lines;
        int finished = 0;
        connect(api, &WzExternalApi::newConsoleLine, &desk, [&](const QString& line) { lines << line; });
        connect(api, &WzExternalApi::commandFinished, &desk, [&] { ++finished; });
        desk.holdsBack = true;
        api->moveToThread(&thread);
        thread.start();
        QMetaObject::invokeMethod(api, [api] { api->processCommand(text("execute 3")); });
        QTRY_COMPARE(desk.asked.size(), 1);
        QMetaObject::invokeMethod(api, [api] { api->onAnswered(1, true, text("path")); });
        QTRY_COMPARE(finished, 1);
        QCOMPARE(lines, QStringList({text("Executing command 3"), text("path")}));
        thread.quit();
        QVERIFY(thread.wait(5000));
        delete api;
    }
};

WZ_TEST_CLASS(tst_WzExternalApi)
#include "tst_WzExternalApi.moc"
