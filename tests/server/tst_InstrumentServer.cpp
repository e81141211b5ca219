#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/packets/AesPresenceDataPacket.h"
#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/PhaseMetersData.h"
#include "network/packets/PpmMetersData.h"
#include "network/packets/RegisterRawDataPacket.h"
#include "network/packets/TeletextRawDataPacket.h"
#include "server/core/AudioMeterService.h"
#include "server/core/InstrumentServer.h"
#include "server/sources/AudioSourceCatalogue.h"

#include "support/Frames.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSignalSpy>
#include <QTcpSocket>
#include <QUdpSocket>

#include <sys/resource.h>
#include <unistd.h>

#include <cmath>

using namespace Velmora::Server;

namespace {

constexpr quint32 kLoopback = 0x7F000001;

/// A client made of bare sockets, so that it can do what a well-behaved one would not.
class BareClient {
public:
    explicit BareClient(const InstrumentServer& server)
    {
        m_tcp.connectToHost(QHostAddress::LocalHost, server.port());
        m_connected = m_tcp.waitForConnected(5000);
        m_udp.bind(QHostAddress(QHostAddress::LocalHost), 0);
    }

    bool isConnected() const { return m_connected; }
    QTcpSocket& tcp() { return m_tcp; }
    quint16 udpPort() const { return m_udp.localPort(); }

    void send(const QByteArray& bytes)
    {
        m_tcp.write(bytes);
        m_tcp.flush();
    }
    void request(quint16 identifier, quint32 address = kLoopback)
    {
        send(Frames::of(RegisterRawDataPacket(identifier, address, udpPort())));
    }
    void cancel(quint16 identifier)
    {
        send(Frames::of(DeregisterRawDataPacket(identifier, kLoopback, udpPort())));
    }

    /// All datagrams that have arrived by now.
    QByteArrayList datagrams()
    {
        QByteArrayList all;
        while (m_udp.hasPendingDatagrams()) {
            QByteArray datagram(int(m_udp.pendingDatagramSize()), '\0');
            m_udp.readDatagram(datagram.data(), datagram.size());
            all << datagram;
        }
        return all;
    }

private:
    QTcpSocket m_tcp;
    QUdpSocket m_udp;
    bool m_connected = false;
};

/// Silence on some channels, whose number may change.
class SomeChannels : public AudioSource {
public:
    explicit SomeChannels(size_t count)
        : channels(count)
    {
    }
    AudioBlock read(const AudioPlanes& planes) override
    {
        AudioBlock block;
        block.frames = planes.frames;
        block.position = std::exchange(framesRead, framesRead + planes.frames);
        for (size_t i = 0; i < channels; ++i) {
            std::fill_n(planes.channels[i], planes.frames, 0.0F);
            block.channels[i] = planes.channels[i];
        }
        return block;
    }
    std::uint64_t position() const override { return framesRead; }

    size_t channels;
    std::uint64_t framesRead = 0;
};

} // namespace

class tst_InstrumentServer : public WzTest {
    Q_OBJECT

private slots:
    void init()
    {
        WzTest::init();
        m_server.emplace();
        QVERIFY(m_server->listen(QHostAddress::LocalHost, 0));
    }
    void cleanup()
    {
        m_server.reset();
        WzTest::cleanup();
    }

    void streamsOnceToEachDestination()
    {
        BareClient client(*m_server);
        BareClient other(*m_server);
        client.request(RawDataPacket::PID_TELETEXT);
        client.request(RawDataPacket::PID_TELETEXT);
        // Another connection that names the same destination.
        other.send(
            Frames::of(RegisterRawDataPacket(RawDataPacket::PID_TELETEXT, kLoopback, client.udpPort())));
        other.request(RawDataPacket::PID_AES_PRESENCE);
        QTRY_VERIFY(isWanted(RawDataPacket::PID_AES_PRESENCE));

        const TeletextRawDataPacket packet("text");
        m_server->streamer().send(packet);
        QCOMPARE(client.datagrams(), QByteArrayList{Frames::of(packet)});
        QCOMPARE(other.datagrams(), QByteArrayList{});

        // The destination stays while one of its connections wants it.
        client.cancel(RawDataPacket::PID_TELETEXT);
        client.cancel(RawDataPacket::PID_TELETEXT);
        client.request(RawDataPacket::PID_PHASE_METERS);
        QTRY_VERIFY(isWanted(RawDataPacket::PID_PHASE_METERS));
        m_server->streamer().send(packet);
        QCOMPARE(client.datagrams().size(), 1);

        other.tcp().abort();
        QTRY_VERIFY(!isWanted(RawDataPacket::PID_TELETEXT));
        QVERIFY(!isWanted(RawDataPacket::PID_AES_PRESENCE));
        QVERIFY(isWanted(RawDataPacket::PID_PHASE_METERS));
    }

    void largeFramesGoOutInSeveralDatagrams()
    {
        BareClient client(*m_server);
        client.request(RawDataPacket::PID_TELETEXT);
        QTRY_VERIFY(isWanted(RawDataPacket::PID_TELETEXT));
        const TeletextRawDataPacket packet(QByteArray(40000, 't'));
        m_server->streamer().send(packet);
        const QByteArrayList datagrams = client.datagrams();
        QCOMPARE(datagrams.size(), 3);
        QCOMPARE(datagrams.join(), Frames::of(packet));
    }

    void refusesWhatItMustNotStream_data()
    {
        QTest::addColumn<int>("identifier");
        QTest::addColumn<uint>("address");
        QTest::addColumn<int>("port");
        QTest::newRow("serialisable packets") << 0x1010 << kLoopback << 20000;
        QTest::newRow("registration packets") << 0x102A << kLoopback << 20000;
        QTest::newRow("identifier 0") << 0 << kLoopback << 20000;
        QTest::newRow("identifier out of range") << 0xFFFF << kLoopback << 20000;
        QTest::newRow("address 0") << 0x1013 << 0U << 20000;
        QTest::newRow("another host") << 0x1013 << 0x7F000002U << 20000;
        QTest::newRow("broadcast") << 0x1013 << 0xFFFFFFFFU << 20000;
        QTest::newRow("port 0") << 0x1013 << kLoopback << 0;
    }
    void refusesWhatItMustNotStream()
    {
        QFETCH(int, identifier);
        QFETCH(uint, address);
        QFETCH(int, port);
        BareClient client(*m_server);
        client.send(Frames::of(RegisterRawDataPacket(quint16(identifier), address, quint16(port))));
        client.request(RawDataPacket::PID_TELETEXT);
        QTRY_VERIFY(isWanted(RawDataPacket::PID_TELETEXT));
        QVERIFY(!isWanted(RawDataPacket::PacketIdentifier(identifier)));
        QCOMPARE(log().count(QStringLiteral("refused")), 1);
    }

    void floodOfRequestsIsBounded()
    {
        BareClient client(*m_server);
        QByteArray flood;
        for (int i = 0; i < 10000; ++i)
            flood += Frames::of(
                RegisterRawDataPacket(RawDataPacket::PID_TELETEXT, kLoopback, quint16(1 + i % 20000)));
        flood += Frames::json(R"({"Class":"end"})");
        bool ended = false;
        connectToPackets([&](const auto&) { ended = true; });
        client.send(flood);
        QTRY_VERIFY(ended);
        QCOMPARE(log().count(QStringLiteral("refused")), 10);

        // As many as a client may have, and its port is among the refused.
        m_server->streamer().send(TeletextRawDataPacket("text"));
        QVERIFY(client.datagrams().isEmpty());
    }

    void survivesWhatClientsSend_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("error"); // told in the log; none when empty
        QTest::newRow("garbage") << QByteArray(100000, '\xCA') << QString();
        QTest::newRow("half a frame") << Frames::json("{}").left(18) << QString();
        QTest::newRow("4 GiB claim") << Frames::header(0x1010, 0xFFFFFFFF)
                                     << QStringLiteral("more than the limit");
        QTest::newRow("short registration") << Frames::raw(0x102A, "123") << QString();
        QTest::newRow("broken JSON") << Frames::json("{") << QStringLiteral("failed to parse packet");
        QTest::newRow("raw data by TCP")
            << Frames::raw(0x1013, "x") << QStringLiteral("Discarding unexpected raw data packet");
    }
    void survivesWhatClientsSend()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, error);
        if (!error.isEmpty())
            log().expectError(error);
        BareClient bad(*m_server);
        bad.send(bytes);
        QTRY_COMPARE(m_server->clientCount(), 1);
        bad.tcp().waitForBytesWritten(100);
        QTest::qWait(10);
        bad.tcp().abort();
        QTRY_COMPARE(m_server->clientCount(), 0);

        BareClient good(*m_server);
        good.request(RawDataPacket::PID_TELETEXT);
        QTRY_VERIFY(isWanted(RawDataPacket::PID_TELETEXT));
    }

    void fiftyClientsHearTheSame()
    {
        std::vector<std::unique_ptr<BareClient>> clients;
        for (int i = 0; i < 50; ++i) {
            clients.push_back(std::make_unique<BareClient>(*m_server));
            QVERIFY(clients.back()->isConnected());
            clients.back()->request(RawDataPacket::PID_TELETEXT);
        }
        QTRY_COMPARE(m_server->clientCount(), 50);
        const SerialisableDataPacket packet(QStringLiteral("News"));
        const TeletextRawDataPacket raw("text");
        m_server->sendToAll(packet);
        for (auto& client : clients) {
            QTRY_COMPARE(client->tcp().bytesAvailable(), qint64(Frames::of(packet).size()));
            m_server->streamer().send(raw);
            QVERIFY(QTest::qWaitFor([&] { return !client->datagrams().isEmpty(); }));
        }
    }

    void aClientThatNeverReadsIsDropped()
    {
        BareClient lazy(*m_server);
        lazy.tcp().setReadBufferSize(1);
        BareClient keen(*m_server);
        QTRY_COMPARE(m_server->clientCount(), 2);
        qint64 read = 0;
        QObject::connect(&keen.tcp(), &QTcpSocket::readyRead, [&] { read += keen.tcp().readAll().size(); });

        SerialisableDataPacket packet(QStringLiteral("Large"));
        for (int i = 0; i < 10; ++i)
            packet.insertOtherPacketIntoThis(QString::number(i),
                                             SerialisableDataPacket(QString(100000, QLatin1Char('x'))));
        const qint64 size = Frames::of(packet).size();
        int sent = 0;
        for (; sent < 100 && m_server->clientCount() == 2; ++sent) {
            m_server->sendToAll(packet);
            QTRY_COMPARE(read, size * (sent + 1));
        }
        QCOMPARE(m_server->clientCount(), 1);
        QCOMPARE(log().count(QStringLiteral("does not read: dropped with")), 1);
        m_server->sendToAll(packet);
        QTRY_COMPARE(read, size * (sent + 1));
    }

    void takesClientsAgainAfterRunningOutOfDescriptors()
    {
        log().expectError(QStringLiteral("Cannot take another client: "));
        const BareClient clients[] = {BareClient(*m_server), BareClient(*m_server), BareClient(*m_server)};
        rlimit usual{};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &usual), 0);
        const int lowestFree = ::dup(STDERR_FILENO);
        ::close(lowestFree);
        const rlimit onlyOneMore{static_cast<rlim_t>(lowestFree) + 1, usual.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_NOFILE, &onlyOneMore), 0);
        const bool ranOut =
            QTest::qWaitFor([&] { return log().contains(QStringLiteral("Cannot take another")); });
        QTest::qWait(1200);
        ::setrlimit(RLIMIT_NOFILE, &usual);
        QVERIFY(ranOut);
        QCOMPARE(m_server->clientCount(), 1);
        QCOMPARE(log().count(QStringLiteral("Cannot take another")), 1);
        QTRY_COMPARE(m_server->clientCount(), int(std::size(clients)));
    }

    void theServerGoesWithSessionsThatHaveEnded()
    {
        BareClient client(*m_server);
        client.request(RawDataPacket::PID_TELETEXT);
        QTRY_VERIFY(isWanted(RawDataPacket::PID_TELETEXT));
        bool stillWanted = true;
        connect(&*m_server, &InstrumentServer::clientEnded, this,
                [&] { stillWanted = isWanted(RawDataPacket::PID_TELETEXT); });
        client.tcp().abort();
        // Unlike QTRY_, this deletes nothing that is to be deleted later.
        while (m_server->clientCount() > 0)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m_server.reset();
        QVERIFY(!stillWanted);
    }

    void framesInATime_data()
    {
        QTest::addColumn<qint64>("nanoseconds");
        QTest::addColumn<quint64>("frames");
        QTest::newRow("none") << qint64(0) << quint64(0);
        QTest::newRow("just not a reading") << qint64(19999999) << quint64(959);
        QTest::newRow("a reading") << qint64(20000000) << quint64(960);
        QTest::newRow("a year and a quarter of a second")
            << qint64(365) * 86400 * 1000000000 + 250000000 << quint64(365) * 86400 * 48000 + 12000;
    }
    void framesInATime()
    {
        QFETCH(qint64, nanoseconds);
        QFETCH(quint64, frames);
        QCOMPARE(quint64(AudioMeterService::framesIn(std::chrono::nanoseconds(nanoseconds))), frames);
    }

    void answersGoToTheOneThatAsked()
    {
        connectToPackets(
            [](ClientSession& session) { session.send(SerialisableDataPacket(session.clientId())); });
        BareClient first(*m_server);
        BareClient second(*m_server);
        QTRY_COMPARE(m_server->clientCount(), 2);

        // A client of the whole process, which must hear nothing of what the server is told.
        SerialisableDataPacketDistributor distributor;
        second.send(Frames::json(R"({"Class":"Question"})"));
        QTRY_VERIFY(second.tcp().bytesAvailable() > 0);
        const QByteArray expected = "\"2130706433" + QByteArray::number(second.tcp().localPort()) + '"';
        QVERIFY(second.tcp().readAll().contains(expected));
        QCOMPARE(first.tcp().bytesAvailable(), qint64(0));
        QVERIFY(!log().contains(QStringLiteral("There are no packet acceptors")));
    }

    void faultsCutClientsOff()
    {
        m_server.emplace(FaultPlan{0.0, std::chrono::milliseconds(5), 0, 0.0, 3});
        QVERIFY(m_server->listen(QHostAddress::LocalHost, 0));
        BareClient client(*m_server);
        QTRY_COMPARE(m_server->clientCount(), 1);
        for (int i = 0; i < 5; ++i)
            m_server->sendToAll(SerialisableDataPacket());
        QTRY_COMPARE(m_server->clientCount(), 0);
    }

    void metersOfTheSourceArrive()
    {
        AudioMeterService service(AudioSourceCatalogue::make("levels", 1), m_server->streamer());
        BareClient client(*m_server);
        client.request(RawDataPacket::PID_PPM_METERS);
        client.request(RawDataPacket::PID_PHASE_METERS);

        std::vector<std::shared_ptr<PpmMetersData>> levels;
        std::vector<std::shared_ptr<PhaseMetersData>> phases;
        QVERIFY(QTest::qWaitFor([&] {
            for (const QByteArray& frame : client.datagrams()) {
                const auto header = RawDataPacket::peekHeader(frame);
                if (header.packetIdentifier == RawDataPacket::PID_PPM_METERS)
                    levels.push_back(std::make_shared<PpmMetersData>(frame, header));
                else
                    phases.push_back(std::make_shared<PhaseMetersData>(frame, header));
            }
            return levels.size() >= 25 && phases.size() >= 25;
        }));
        QCOMPARE(levels.back()->getSequenceNumber() - levels.front()->getSequenceNumber(),
                 uint(levels.size() - 1));
        QCOMPARE(levels.back()->getPairPresenceBits(), 0xFFU);
        const auto& values = levels.back()->getMeterValues();
        QCOMPARE(values.size(), size_t(16));
        for (const auto& value : values)
            QVERIFY2(std::abs(value.value + 3.0F * value.channel) < 0.1F,
                     qPrintable(QString::number(value.value)));
        QCOMPARE(phases.back()->getMeterValues().at(0).value, 1.0F);
        QCOMPARE(phases.back()->getMeterValues().at(2).value, -1.0F);

        // Nothing is measured for nobody.
        client.tcp().abort();
        QTRY_VERIFY(!isWanted(RawDataPacket::PID_PPM_METERS));
        QTest::qWait(30);
        client.datagrams();
        QTest::qWait(60);
        QVERIFY(client.datagrams().isEmpty());
    }

    void channelsThatComeAndGoAreNoticed()
    {
        auto source = std::make_unique<SomeChannels>(2);
        SomeChannels& channels = *source;
        AudioMeterService service(std::make_unique<SomeChannels>(16), m_server->streamer());
        QSignalSpy changed(&service, &AudioMeterService::presentChannelsChanged);
        service.setSource(std::move(source));
        // Without a reading, and without taking anything from the source.
        QCOMPARE(service.presentChannels().count(), size_t(2));
        QCOMPARE(channels.framesRead, std::uint64_t(0));

        BareClient client(*m_server);
        client.request(RawDataPacket::PID_PPM_METERS);
        QTRY_VERIFY(channels.framesRead > 0);
        QCOMPARE(changed.size(), 0);
        channels.channels = 0;
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(service.presentChannels().none());
    }

    void silenceHasNoPhase()
    {
        AudioMeterService service(AudioSourceCatalogue::make("silence", 1), m_server->streamer());
        BareClient client(*m_server);
        client.request(RawDataPacket::PID_PHASE_METERS);
        QByteArrayList frames;
        QVERIFY(QTest::qWaitFor([&] { return !(frames = client.datagrams()).isEmpty(); }));
        const PhaseMetersData phases(frames.first(), RawDataPacket::peekHeader(frames.first()));
        for (const auto& value : phases.getMeterValues())
            QCOMPARE(value.flags, value.kNotMeasured);
        QVERIFY(!AudioSourceCatalogue::make("nothing of that name", 1));
    }

private:
    bool isWanted(RawDataPacket::PacketIdentifier identifier)
    {
        return m_server->streamer().isWanted(identifier);
    }

    template<typename Handler>
    void connectToPackets(Handler handler)
    {
        connect(&*m_server, &InstrumentServer::clientConnected, this,
                [this, handler](ClientSession* session) {
                    connect(session, &ClientSession::packetReceived, this,
                            [session, handler] { handler(*session); });
                });
    }

    std::optional<InstrumentServer> m_server;
};

WZ_TEST_CLASS(tst_InstrumentServer)
#include "tst_InstrumentServer.moc"
