#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "datacore/WzClientDatacoreManager.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/WzClientNetworkManager.h"
#include "types/waveform/CodeScale.h"
#include "types/waveform/WaveformGeometry.h"

#include "endtoend/Program.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <csignal>
#include <memory>
#include <random>

namespace {

QJsonObject lastLine(const QString& output)
{
    const QStringList lines = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.isEmpty() ? QJsonObject() : QJsonDocument::fromJson(lines.last().toUtf8()).object();
}

} // namespace

class tst_Programs : public WzTest {
    Q_OBJECT

private slots:
    void commandLines_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("says"); // on standard output when it succeeds, else on standard error
        const auto row = [](const char* program, const char* arguments, int exitCode, const char* says) {
            QTest::addRow("%s %s", program, arguments)
                << QString::fromLatin1(program)
                << QString::fromLatin1(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts) << exitCode
                << QString::fromLatin1(says);
        };
        row("wz_instrument", "--version", 0, "wz_instrument " WZ_VERSION "\n");
        row("wz_instrument", "--help", 0, "--list-sources");
        row("wz_instrument", "--list-sources", 0, "pink-noise");
        row("wz_instrument", "--sorce tone", 2, "wz_instrument: Unknown option 'sorce'. (see --help)\n");
        row("wz_instrument", "--source", 2, "wz_instrument: Missing value");
        row("wz_instrument", "--source nothing", 2, "wz_instrument: there is no source 'nothing'");
        row("wz_instrument", "--standard 625p", 2, "wz_instrument: there is no video standard '625p'");
        row("wz_instrument", "--source tone --input /none", 2, "wz_instrument: --source and --input do not");
        row("wz_instrument", "--input /none", 1,
            "wz_instrument: cannot play '/none': there is no such file\n");
        row("wz_instrument", "--listen here", 2, "wz_instrument: 'here' is no address");
        row("wz_instrument", "--faults fire=1", 2, "wz_instrument: 'fire=1' is no fault");
        row("wz_instrument", "--seed x", 2, "wz_instrument: 'x' is no seed");
        row("wz_instrument", "--render eye", 2, "wz_instrument: there is no measurement 'eye' to render");
        row("wz_instrument", "--render waveform", 2, "wz_instrument: --render wants --output");
        row("wz_instrument", "--render waveform --output x --size 1x", 2, "wz_instrument: '1x' is no size");
        row("wz_instrument", "--render waveform --output x --filter sharp", 2,
            "wz_instrument: there is no filter 'sharp'");
        row("wz_instrument", "--render waveform --output x --input /none", 1,
            "wz_instrument: cannot play '/none': there is no such file\n");
        row("wz_instrument", "--render waveform --output x --source no-signal", 1,
            "wz_instrument: the signal has no frame 0\n");
        row("wz_instrument", "--render waveform --output /none/x", 1,
            "wz_instrument: cannot write '/none/x'");
        row("wz_instrument", "tone", 2, "wz_instrument: unexpected argument 'tone'");
        row("wz_datacore", "--version", 0, "wz_datacore " WZ_VERSION "\n");
        row("wz_datacore", "", 2, "wz_datacore: no command given");
        row("wz_datacore", "metres", 2, "wz_datacore: there is no command 'metres'");
        row("wz_datacore", "meters --count -1", 2, "wz_datacore: ");
        row("wz_datacore", "get", 2, "wz_datacore: 'get' needs more arguments");
        row("wz_datacore", "wait a b", 2, "wz_datacore: unexpected argument 'b'");
        row("wz_datacore", "list --timeout 1", 1, "wz_datacore: no trees from 127.0.0.1:29440 within 1 s");
        row("wz_datacore", "export file --timeout 1", 1, "wz_datacore: no trees from 127.0.0.1:29440");
        row("wz_datacore", "import /none/file", 1,
            "wz_datacore: cannot read /none/file: No such file or directory\n");
        row("wz_datacore", "decode-vpid 0x89CA8001", 0, "1920x1080p59.94 YCbCr:422:10 3G A Rec.709\n");
        row("wz_datacore", "decode-vpid 89CA80+1", 2, "wz_datacore: '89CA80+1' is not 4 bytes");
        row("wz_datacore", "decode-channel-status 850", 2, "wz_datacore: '850' is not 24 bytes");
        row("wz_datacore", "decode-channel-status 850000000000000000000000000000000000000000000071", 0,
            "CRCC Ok\n");
        row("wz_datacore", "decode-channel-status 850000000000000000000000000000000000000000000072", 0,
            "CRCC Bad\n");
        row("wz_datacore", "list-standards --generator", 0, "\n847B8001 1280x720p60 ");
        row("wz_datacore", "list-standards --host 127.0.0.1", 2, "'list-standards' takes no --host");
        row("wz_datacore", "meters --timeout 4294968", 2,
            "wz_datacore: '4294968' is no number for --timeout");
        row("wz_datacore", "meters --host here", 2, "wz_datacore: 'here' is no IPv4 address");
        row("wz_datacore", "meters --host ::1", 2, "wz_datacore: '::1' is no IPv4 address");
        row("wz_datacore", "events --timeout 1", 1, "no connection to 127.0.0.1:29440 for 1 s");
        row("wz_datacore", "meters --timeout 1", 1, "no meter values from 127.0.0.1:29440 for 1 s");
        row("wz_displayclient", "--version", 0, "wz_displayclient " WZ_VERSION "\n");
    }
    void commandLines()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, says);
        Program run(program.toLatin1().constData(), arguments);
        QCOMPARE(run.exitCode(), exitCode);
        const QString said = exitCode == 0 ? run.output() : run.errors();
        QVERIFY2(said.contains(says), qPrintable(said));
        if (exitCode == 2) {
            QCOMPARE(said.count(QLatin1Char('\n')), 1);
            QVERIFY(run.output().isEmpty());
        }
    }

    void aFrameIsRendered()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("waveform.png"));
        Program run("wz_instrument",
                    {QStringLiteral("--render"), QStringLiteral("waveform"), QStringLiteral("--source"),
                     QStringLiteral("bars-75"), QStringLiteral("--size"), QStringLiteral("960x510"),
                     QStringLiteral("--frame"), QStringLiteral("1"), QStringLiteral("--waveform-mode"),
                     QStringLiteral("stacked"), QStringLiteral("--output"), file});
        QVERIFY2(run.exitCode() == 0, qPrintable(run.errors()));
        using namespace Velmora::WaveformTypes;
        const WaveformGeometry geometry({960, 510}, Presentation::Stacked, 3);
        const QImage image(file);
        QCOMPARE(image.size(), geometry.imageRect().size());
        // Cb of green, the fourth bar.
        const QRect cell = geometry.cells()[1];
        const int row = cell.y() + geometry.row(CodeScale(10, CodeScale::Range::Narrow, true).percent(253));
        const int column = cell.x() + geometry.column(7.0 / 16);
        QVERIFY(qBlue(image.pixel(column, row)) > 200);
        QVERIFY(qBlue(image.pixel(column, row - 6)) < 50);
    }

    void portInUse()
    {
        QTcpServer other;
        QVERIFY(other.listen(QHostAddress::LocalHost, NetworkConnection::kServerTcpPort));
        Program instrument("wz_instrument", {});
        QCOMPARE(instrument.exitCode(), 1);
        QVERIFY2(instrument.errors().startsWith(
                     QStringLiteral("wz_instrument: cannot listen on 127.0.0.1:29440: ")),
                 qPrintable(instrument.errors()));
    }

    void endsCleanly_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGTERM") << SIGTERM;
    }
    void endsCleanly()
    {
        QFETCH(int, signal);
        const auto instrument = startInstrument();
        QVERIFY(instrument);
        QTemporaryDir folder;
        Program client("wz_displayclient",
                       {QStringLiteral("-DpresetFile=") + folder.filePath(QStringLiteral("state.json"))});
        QVERIFY(client.prints(QStringLiteral("info: connected to 127.0.0.1:29440")));
        // The display client has the usual UDP port; the tool finds another one.
        Program meters("wz_datacore", {QStringLiteral("meters"), QStringLiteral("--json")});
        QVERIFY(meters.prints(QStringLiteral("\"sequence\"")));
        for (Program* program : {&meters, &client, instrument.get()}) {
            program->signal(signal);
            QCOMPARE(program->exitCode(), 0);
        }
        QVERIFY(instrument->output().contains(QStringLiteral("wz_instrument ends")));
    }

    /// Through the module that the program loads, which the tests of the library do without.
    void filesArePlayed()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("grey.y4m"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("YUV4MPEG2 W1920 H1080 F25:1 It A1:1 C422\nFRAME\n" + QByteArray(2 * 1920 * 1080, '\x80'));
        file.close();
        const auto instrument = startInstrument({QStringLiteral("--input"), path});
        QVERIFY(instrument);
        Program get("wz_datacore",
                    {QStringLiteral("get"), QStringLiteral("statusCoreRouter/sdiInput/activeStandard")});
        QCOMPARE(get.exitCode(), 0);
        QCOMPARE(get.output(), QStringLiteral("false\n85052000\n"));
    }

    void metersShowWhatIsGenerated()
    {
        const auto instrument = startInstrument({QStringLiteral("--source"), QStringLiteral("tone")});
        QVERIFY(instrument);
        Program meters("wz_datacore",
                       {QStringLiteral("meters"), QStringLiteral("--json"), QStringLiteral("--count"),
                        QStringLiteral("30")});
        QCOMPARE(meters.exitCode(), 0);
        QCOMPARE(meters.output().count(QLatin1Char('\n')), 30);
        const QJsonArray levels = lastLine(meters.output()).value(QLatin1String("ppm")).toArray();
        QCOMPARE(levels.size(), 16);
        QVERIFY(qAbs(levels.at(15).toDouble() + 18.0) < 0.1);
    }

    void noMoreLinesThanAskedFor()
    {
        const auto instrument = startInstrument();
        QVERIFY(instrument);
        Program meters("wz_datacore",
                       {QStringLiteral("meters"), QStringLiteral("--json"), QStringLiteral("--count"),
                        QStringLiteral("3")});
        QVERIFY(meters.prints(QStringLiteral("\n")));
        meters.signal(SIGSTOP);
        QTest::qWait(300); // readings of which several wait for it
        meters.signal(SIGCONT);
        QCOMPARE(meters.exitCode(), 0);
        QCOMPARE(meters.output().count(QLatin1Char('\n')), 3);
    }

    void resultsThatCannotBeWritten_data()
    {
        QTest::addColumn<QString>("redirection");
        QTest::addColumn<QString>("says");
        QTest::newRow("full") << QStringLiteral(">/dev/full") << QStringLiteral("No space left on device");
        QTest::newRow("closed") << QStringLiteral(">&-") << QStringLiteral("Bad file descriptor");
        QTest::newRow("nobody reads") << QStringLiteral("| true") << QString();
    }
    void resultsThatCannotBeWritten()
    {
        QFETCH(QString, redirection);
        QFETCH(QString, says);
        const auto instrument = startInstrument();
        QVERIFY(instrument);
        QProcess shell;
        shell.start(QStringLiteral("bash"),
                    {QStringLiteral("-c"),
                     QStringLiteral("set -o pipefail; \"$0\" meters --json --timeout 5 %1").arg(redirection),
                     QCoreApplication::applicationDirPath() + QStringLiteral("/wz_datacore")});
        QVERIFY(shell.waitForFinished(kStartTimeMs));
        QCOMPARE(shell.exitCode(), 1);
        const QString errors = QString::fromUtf8(shell.readAllStandardError());
        QVERIFY2(errors.contains(says), qPrintable(errors));
        QCOMPARE(errors.contains(QStringLiteral("cannot write the results")), !says.isEmpty());
    }

    void everySubscriptionIsRenewedAfterARestart()
    {
        auto instrument = startInstrument();
        QVERIFY(instrument);
        Program meters("wz_datacore", {QStringLiteral("meters"), QStringLiteral("--json")});
        QVERIFY(meters.prints(QStringLiteral("\"sequence\":20}")));
        instrument->signal(SIGKILL);
        QVERIFY(meters.complains(QStringLiteral("connection to 127.0.0.1:29440 lost, retrying")));
        instrument.reset();
        const int before = meters.output().size();
        instrument = startInstrument({QStringLiteral("--source"), QStringLiteral("silence")});
        QVERIFY(instrument);
        QVERIFY(QTest::qWaitFor([&] { return meters.output().size() > before; }, kStartTimeMs));
        const QJsonArray levels = lastLine(meters.output().trimmed()).value(QLatin1String("ppm")).toArray();
        QCOMPARE(levels.at(0).toDouble(), -99.0);
    }

    void settingsAreWrittenAndWatched()
    {
        const auto run = [](const QString& command) {
            return std::make_unique<Program>("wz_datacore", command.split(QLatin1Char(' ')));
        };
        auto instrument = startInstrument();
        QVERIFY(instrument);
        const QString name = QStringLiteral("configCoreRouter/signalSource/name");
        const auto watch = run(QStringLiteral("watch ") + name);
        QVERIFY(watch->prints(name + QStringLiteral(" levels\n")));

        const auto set = run(QStringLiteral("set %1 tone").arg(name));
        QCOMPARE(set->exitCode(), 0);
        QVERIFY(watch->prints(name + QStringLiteral(" tone\n")));
        const auto get = run(QStringLiteral("get ") + name);
        QCOMPARE(get->exitCode(), 0);
        QCOMPARE(get->output(), QStringLiteral("tone\n"));
        const auto invalid = run(QStringLiteral("set %1 noise").arg(name));
        QCOMPARE(invalid->exitCode(), 1);
        QVERIFY(invalid->errors().contains(QStringLiteral("is invalid: The stored value is not supported")));
        const auto refused = run(QStringLiteral("set statusCoreRouter/systemStatus/softwareVersion 9"));
        QCOMPARE(refused->exitCode(), 1);
        QVERIFY(refused->errors().contains(QStringLiteral("refused, it stays '" WZ_VERSION "'")));
        const auto list = run(QStringLiteral("list configCoreRouter/audioMetering"));
        QCOMPARE(list->exitCode(), 0);
        QCOMPARE(list->output().count(QLatin1Char('\n')), 4);

        // A restarted instrument has its own values, and the mirror follows.
        instrument->signal(SIGKILL);
        QVERIFY(watch->complains(QStringLiteral("connection lost")));
        instrument.reset();
        instrument = startInstrument({QStringLiteral("--source"), QStringLiteral("ident")});
        QVERIFY(instrument);
        QVERIFY(watch->prints(name + QStringLiteral(" ident\n")));
    }

    void eventsAreKeptAndFollowed()
    {
        const auto set = [](const QString& path, const QString& value) {
            return Program("wz_datacore", {QStringLiteral("set"), path, value}).exitCode();
        };
        const QString source = QStringLiteral("configCoreRouter/signalSource/name");
        const QString text = QStringLiteral(" audio-presence Audio input %1: 16 of 16 channels present\n");
        const auto instrument =
            startInstrument({QStringLiteral("--faults"), QStringLiteral("disconnect=330")});
        QVERIFY(instrument);
        QCOMPARE(set(source, QStringLiteral("tone")), 0);
        // One that comes late.
        Program events("wz_datacore", {QStringLiteral("events")});
        QVERIFY(events.prints(text.arg(QStringLiteral("tone"))));
        QCOMPARE(set(QStringLiteral("commandCoreRouter/logging/resetEventLog"), QStringLiteral("1")), 0);
        QVERIFY(events.prints(QStringLiteral(" log-reset Event Logging Reset\n")));

        Program json("wz_datacore",
                     {QStringLiteral("events"), QStringLiteral("--json"), QStringLiteral("--timeout"),
                      QStringLiteral("1")});
        QCOMPARE(json.exitCode(), 0);
        QCOMPARE(json.output().count(QLatin1Char('\n')), 1);
        const QJsonObject reset = lastLine(json.output());
        QCOMPARE(reset.value(QLatin1String("text")).toString(), QStringLiteral("Event Logging Reset"));
        const auto time =
            QDateTime::fromString(reset.value(QLatin1String("time")).toString(), Qt::ISODateWithMs);
        QVERIFY(qAbs(time.secsTo(QDateTime::currentDateTime())) < 60);

        // The connection is cut again and again; what is kept is sent again each time.
        QStringList expected{QStringLiteral("tone"), QStringLiteral("Reset")};
        for (int i = 0; i < 15; ++i) {
            expected << (i % 2 == 0 ? QStringLiteral("ident") : QStringLiteral("tone"));
            QCOMPARE(set(source, expected.last()), 0);
            // Others that come and go are told to everybody, which uses up the packets of a connection.
            for (int j = 0; j < 12; ++j) {
                QTcpSocket other;
                other.connectToHost(QHostAddress::LocalHost, NetworkConnection::kServerTcpPort);
                QVERIFY(other.waitForReadyRead(kStartTimeMs));
            }
        }
        QVERIFY(events.complains(QStringLiteral("lost, retrying")));
        QVERIFY(QTest::qWaitFor([&] { return events.output().count(QLatin1Char('\n')) >= expected.size(); },
                                kStartTimeMs));
        const QStringList lines = events.output().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), expected.size());
        for (int i = 0; i < lines.size(); ++i)
            QVERIFY2(lines.at(i).contains(expected.at(i)), qPrintable(lines.at(i)));
        events.signal(SIGINT);
        QCOMPARE(events.exitCode(), 0);
    }

    void settingsAreExportedAndImported()
    {
        const auto run = [](const QString& command, const QString& file = {}) {
            QStringList arguments = command.split(QLatin1Char(' '));
            if (!file.isEmpty())
                arguments << file;
            return std::make_unique<Program>("wz_datacore", arguments);
        };
        const QString name = QStringLiteral("configCoreRouter/signalSource/name");
        const QString ballistics = QStringLiteral("configCoreRouter/audioMetering/ballistics");
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.json"));
        const auto instrument = startInstrument({QStringLiteral("--source"), QStringLiteral("tone")});
        QVERIFY(instrument);
        QCOMPARE(run(QStringLiteral("export"), file)->exitCode(), 0);
        QCOMPARE(run(QStringLiteral("set %1 ident").arg(name))->exitCode(), 0);
        QCOMPARE(run(QStringLiteral("set %1 3").arg(ballistics))->exitCode(), 0);
        QCOMPARE(run(QStringLiteral("import"), file)->exitCode(), 0);
        const auto tree = run(QStringLiteral("tree configCoreRouter"));
        QCOMPARE(tree->exitCode(), 0);
        const QString restored = tree->output();
        QVERIFY2(restored.contains(QStringLiteral("\n    ballistics: 0\n"))
                     && restored.contains(QStringLiteral("\n    name: tone\n")),
                 qPrintable(restored));

        // What the instrument does not take is told, and does not keep the others back.
        QFile settings(file);
        QVERIFY(settings.open(QIODevice::ReadWrite));
        const QByteArray changed = settings.readAll()
                                       .replace("hatHoldTime", "hatTime")
                                       .replace("ballistics\": \"0\"", "ballistics\": \"99\"")
                                       .replace("\"tone\"", "\"silence\"")
                                       .replace("ments\": {", "ments\": {\"statusCoreRouter/x\": null,");
        settings.resize(0);
        settings.seek(0);
        settings.write(changed);
        settings.close();
        const auto import = run(QStringLiteral("import --json"), file);
        QCOMPARE(import->exitCode(), 1);
        const QJsonObject result = lastLine(import->output());
        // All but the three below.
        const auto elements =
            QJsonDocument::fromJson(changed).object().value(QLatin1String("elements")).toObject();
        QVERIFY(elements.size() > 3);
        QCOMPARE(result.value(QLatin1String("written")).toInt(), elements.size() - 3);
        QCOMPARE(result.value(QLatin1String("unknown")).toArray(),
                 (QJsonArray{QStringLiteral("configCoreRouter/audioMetering/hatTime")}));
        QCOMPARE(result.value(QLatin1String("refused")).toArray(),
                 (QJsonArray{ballistics, QStringLiteral("statusCoreRouter/x")}));
        const auto get = run(QStringLiteral("get --json %1").arg(name));
        QCOMPARE(get->exitCode(), 0);
        QCOMPARE(lastLine(get->output()).value(QLatin1String("values")).toArray(),
                 QJsonArray{QStringLiteral("silence")});
    }

    /// The first values are counted, too, although they come before all of them are known to be there.
    void watchEndsAfterItsCount()
    {
        const auto instrument = startInstrument();
        QVERIFY(instrument);
        Program watch("wz_datacore",
                      {QStringLiteral("watch"), QStringLiteral("--count"), QStringLiteral("1"),
                       QStringLiteral("configCoreRouter/signalSource/name"),
                       QStringLiteral("statusCoreRouter/systemStatus/softwareVersion")});
        QCOMPARE(watch.exitCode(), 0);
        QCOMPARE(watch.output().count(QLatin1Char('\n')), 1);
        QCOMPARE(watch.errors(), QString());
    }

    /// Two that watch and one that writes a thousand times, on connections that are cut again and again.
    void everybodyStaysInStep()
    {
        const QString path = QStringLiteral("configCoreRouter/audioMetering/ballistics");
        const auto instrument =
            startInstrument({QStringLiteral("--faults"), QStringLiteral("disconnect=330")});
        QVERIFY(instrument);
        const QStringList watchCommand{QStringLiteral("watch"), path};
        Program firstWatch("wz_datacore", watchCommand);
        Program secondWatch("wz_datacore", watchCommand);
        QVERIFY(firstWatch.prints(path) && secondWatch.prints(path));

        SerialisableDataPacketDistributor distributor;
        WzClientNetworkManager network(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        WzClientDatacoreManager datacores(network.getConnectionToServer(), distributor);
        int losses = 0;
        connect(&network, &WzClientNetworkManager::connectionToServerLost, this, [&] { ++losses; });
        network.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);

        const auto node = [&] { return datacores.getClientDatacoreRegistry().lookupDatacoreFromPath(path); };
        std::mt19937 random(7);
        for (int i = 0; i < 1000; ++i) {
            QVERIFY(QTest::qWaitFor([&] { return node() && node()->hasValueOfServer(); }, kStartTimeMs));
            node()->setDataUint(random() % 5);
            if (random() % 3 == 0)
                QTest::qWait(1);
        }
        QVERIFY(QTest::qWaitFor(
            [&] { return node() && node()->hasValueOfServer() && node()->isInSyncWithServer(); },
            kStartTimeMs));
        QVERIFY(losses > 0);

        const QString last = QStringLiteral(" %1 %2\n").arg(path, node()->getData());
        for (Program* watch : {&firstWatch, &secondWatch}) {
            QVERIFY2(QTest::qWaitFor([&] { return watch->output().endsWith(last); }, kStartTimeMs),
                     qPrintable(watch->output().right(200)));
        }
        Program get("wz_datacore", {QStringLiteral("get"), path});
        QCOMPARE(get.exitCode(), 0);
        QCOMPARE(get.output(), node()->getData() + QLatin1Char('\n'));
    }

    /// More text in one go than the instrument would keep echoes of, by a client that reads none meanwhile.
    void floodOfWritesArrivesAndHindersNobody()
    {
        const QString path = QStringLiteral("configCoreRouter/signalSource/name");
        // The address sanitizer keeps freed memory back, which is not what is measured here.
        const QByteArray sanitizerOptions = qgetenv("ASAN_OPTIONS");
        qputenv("ASAN_OPTIONS",
                sanitizerOptions + ":quarantine_size_mb=1:thread_local_quarantine_size_kb=64");
        const auto instrument = startInstrument();
        qputenv("ASAN_OPTIONS", sanitizerOptions);
        QVERIFY(instrument);
        SerialisableDataPacketDistributor distributor;
        NetworkConnection connection(nullptr, false);
        WzClientDatacoreManager datacores(connection, distributor);
        QVERIFY(connection.connectToHost(QHostAddress(QHostAddress::LocalHost),
                                         NetworkConnection::kServerTcpPort));
        const auto node = [&] { return datacores.getClientDatacoreRegistry().lookupDatacoreFromPath(path); };
        QVERIFY(QTest::qWaitFor([&] { return node() && node()->hasValueOfServer(); }, kStartTimeMs));
        QSignalSpy lost(node(), &ClientDatacore::lostPackets);
        const int peakBefore = instrument->peakMemory();

        const QString longText(2000, QLatin1Char('x'));
        for (int i = 0; i < 20'000 && node(); ++i)
            node()->setDataString(longText);
        for (int i = 0; i < 3; ++i) {
            Program other("wz_datacore", {QStringLiteral("get"), path});
            QCOMPARE(other.exitCode(), 0);
        }
        const QString last = QStringLiteral("ident");
        QVERIFY2(node(), "the flood has cost the connection");
        QSignalSpy settled(node(), &ClientDatacore::datacoreInSyncWithServer);
        node()->setDataString(last);
        QVERIFY(settled.wait(60'000));
        QVERIFY(node());
        QCOMPARE(node()->getData(), last);
        QVERIFY(lost.isEmpty());
        QVERIFY2(instrument->peakMemory() - peakBefore < 12'000, "the instrument has kept the flood");
        Program get("wz_datacore", {QStringLiteral("get"), path});
        QCOMPARE(get.exitCode(), 0);
        QCOMPARE(get.output(), last + QLatin1Char('\n'));
    }

    void metersSurviveAnUnreliableInstrument()
    {
        const auto instrument =
            startInstrument({QStringLiteral("--faults"), QStringLiteral("drop=0.05,split=50,corrupt=0.05"),
                             QStringLiteral("--seed"), QStringLiteral("3")});
        QVERIFY(instrument);
        Program meters("wz_datacore",
                       {QStringLiteral("meters"), QStringLiteral("--json"), QStringLiteral("--count"),
                        QStringLiteral("50")});
        QCOMPARE(meters.exitCode(), 0);
        const QStringList lines = meters.output().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString& line : lines)
            QVERIFY2(!lastLine(line).isEmpty(), qPrintable(line));
    }
};

WZ_TEST_CLASS(tst_Programs)
#include "tst_Programs.moc"
