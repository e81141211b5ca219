#include "network/NetworkConnection.h"
#include "network/RawDataPacketRegistry.h"
#include "network/SerialisableDataPacket.h"
#include "network/packets/AesPresenceDataPacket.h"
#include "network/packets/PpmMetersData.h"
#include "network/packets/DeregisterRawDataPacket.h"
#include "network/packets/RegisterRawDataPacket.h"

#include "CollectingReceiver.h"
#include "support/Frames.h"
#include "support/ScriptedPeer.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QMetaEnum>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTimer>
#include <QUdpSocket>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

using Fault = ScriptedPeer::Fault;
Q_DECLARE_METATYPE(ScriptedPeer::Fault)

namespace {

/// A UDP port on loopback that nobody uses, below the range from which the kernel takes ports by itself.
quint16 freeUdpPort()
{
    for (quint16 port = 20000; port < 32768; ++port) {
        QUdpSocket probe;
        if (probe.bind(QHostAddress::LocalHost, port))
            return port;
    }
    return 0;
}

PpmMetersData meters(quint32 sequence)
{
    return PpmMetersData({{0, 0, 0, 0, -20.0F}}, 1, 0, sequence);
}

void sendDatagram(const QByteArray& bytes, quint16 port)
{
    QUdpSocket().writeDatagram(bytes, QHostAddress::LocalHost, port);
}

/// A server that takes each client and resets its connection at once. It has a thread of its own, for a
/// client that blocks while it connects.
class VanishingPeer {
public:
    VanishingPeer()
        : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        if (::bind(m_listener, generic, size) == 0 && ::listen(m_listener, 8) == 0
            && ::getsockname(m_listener, generic, &size) == 0)
            m_port = ntohs(address.sin_port);
        m_thread = std::thread([this] { resetClients(); });
    }
    ~VanishingPeer()
    {
        ::shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        ::close(m_listener);
    }
    Q_DISABLE_COPY_MOVE(VanishingPeer)

    quint16 port() const { return m_port; }

private:
    void resetClients() const
    {
        for (int client = 0; (client = ::accept(m_listener, nullptr, nullptr)) >= 0; ::close(client)) {
            const linger atOnce{1, 0};
            ::setsockopt(client, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        }
    }

    int m_listener;
    quint16 m_port = 0;
    std::thread m_thread;
};

} // namespace

class tst_NetworkConnection : public WzTest {
    Q_OBJECT

private slots:
    void identifiersOfBothEnds()
    {
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        QVERIFY(connect(connection, peer));
        QCOMPARE(connection.getUniqueConnectionID(), QStringLiteral("2130706433%1").arg(peer.port()));
        QCOMPARE(connection.getLocalId(), QStringLiteral("2130706433%1").arg(peer.client()->peerPort()));
    }

    void refusedConnection()
    {
        ScriptedPeer peer;
        const quint16 port = peer.port();
        peer.stopListening();
        NetworkConnection connection(nullptr, false);
        QSignalSpy lost(&connection, &NetworkConnection::disconnectedFromHost);
        QVERIFY(!connection.connectToHost(QHostAddress(QHostAddress::LocalHost), port));
        QVERIFY(!connection.isConnectedToHost());
        QVERIFY(log().contains(QStringLiteral("I QAbstractSocket::ConnectionRefusedError")));
        connection.disconnectFromHost();
        QCOMPARE(lost.size(), 0);
    }

    void receivesWhateverTheStreamLooksLike_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<int>("delivered");
        QTest::newRow("plain") << Fault::None << 2;
        QTest::newRow("garbage") << Fault::GarbageBeforeFrame << 2;
        QTest::newRow("split") << Fault::SplitFrame << 2;
        QTest::newRow("wrong trailer") << Fault::WrongTrailer << 1;
    }
    void receivesWhateverTheStreamLooksLike()
    {
        QFETCH(Fault, fault);
        QFETCH(int, delivered);
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        CollectingReceiver<SerialisableDataPacket> first;
        CollectingReceiver<SerialisableDataPacket> second;
        QVERIFY(connect(connection, peer));
        peer.send(Frames::json(R"({"Class":"A"})"), fault);
        peer.send(Frames::json(R"({"Class":"B"})"));
        QTRY_COMPARE(int(first.packets.size()), delivered);
        QCOMPARE(first.packets.back()->getPacketClassName(), QStringLiteral("B"));
        QVERIFY(second.packets == first.packets);
    }

    void aPeerThatVanishesIsNoConnection()
    {
        VanishingPeer peer;
        QVERIFY(peer.port() != 0);
        NetworkConnection connection(nullptr, false);
        connection.listenForRawDataPackets(QHostAddress::LocalHost, freeUdpPort());
        // Many requests to send, so that some of the attempts find the loss while they send them.
        CollectingReceiver<PpmMetersData> receiver;
        auto& registry = RawDataPacketRegistry::getInstance();
        for (int i = 0x1011; i <= 0x1029; ++i)
            registry.registerRawDataPacketReceiver(RawDataPacket::PacketIdentifier(i), &receiver);
        const auto leave = qScopeGuard([&] {
            for (int i = 0x1011; i <= 0x1029; ++i)
                registry.deregisterRawDataPacketReceiver(RawDataPacket::PacketIdentifier(i), &receiver);
        });
        QSignalSpy lost(&connection, &NetworkConnection::disconnectedFromHost);
        for (int attempt = 0; attempt < 200; ++attempt) {
            lost.clear();
            const bool connected = connection.connectToHost(QStringLiteral("127.0.0.1"), peer.port());
            // Whoever has connected relies on hearing of the loss afterwards.
            QVERIFY(!connected || lost.isEmpty());
            connection.disconnectFromHost();
        }
    }

    void whoHearsOfALossMayDoAnything_data()
    {
        QTest::addColumn<QString>("act");
        QTest::addColumn<bool>("adopts");
        for (const bool adopts : {false, true}) {
            for (const char* act : {"reconnect", "disconnect", "destroy the connection"})
                QTest::addRow("%s%s", act, adopts ? ", adopting" : "") << QString::fromLatin1(act) << adopts;
        }
    }
    void whoHearsOfALossMayDoAnything()
    {
        QFETCH(QString, act);
        QFETCH(bool, adopts);
        ScriptedPeer peer;
        auto connection = std::make_unique<NetworkConnection>(nullptr, false);
        QVERIFY(connect(*connection, peer));
        bool acted = false;
        QObject::connect(connection.get(), &NetworkConnection::disconnectedFromHost, [&] {
            if (std::exchange(acted, true))
                return;
            if (act == QLatin1String("reconnect"))
                connection->connectToHost(QHostAddress(QHostAddress::LocalHost), peer.port());
            else if (act == QLatin1String("disconnect"))
                connection->disconnectFromHost();
            else
                connection.reset();
        });

        if (adopts) {
            auto socket = std::make_unique<QTcpSocket>();
            socket->connectToHost(QHostAddress::LocalHost, peer.port());
            QVERIFY(socket->waitForConnected(5000));
            connection->connectToHost(std::move(socket));
        } else {
            connection->connectToHost(QHostAddress(QHostAddress::LocalHost), peer.port());
        }
        QVERIFY(acted);
        if (act != QLatin1String("reconnect")) {
            QVERIFY(!connection || !connection->isConnectedToHost());
            return;
        }
        // The later connection is the only one.
        QVERIFY(connection->isConnectedToHost());
        QVERIFY(connection->findChildren<QTcpSocket*>().size() == 1);
        CollectingReceiver<SerialisableDataPacket> receiver;
        const auto isServed = [&] {
            return peer.client()
                && connection->getLocalId() == QStringLiteral("2130706433%1").arg(peer.client()->peerPort());
        };
        QVERIFY(QTest::qWaitFor(isServed));
        peer.send(Frames::json("{}"));
        QTRY_COMPARE(receiver.packets.size(), size_t(1));
    }

    void connectionCutInAFrame()
    {
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        CollectingReceiver<SerialisableDataPacket> receiver;
        QSignalSpy lost(&connection, &NetworkConnection::disconnectedFromHost);
        QVERIFY(connect(connection, peer));
        peer.send(Frames::json(R"({"Class":"A"})"), Fault::CutInFrame);
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(connect(connection, peer));
        peer.send(Frames::json(R"({"Class":"B"})"));
        QTRY_COMPARE(receiver.packets.size(), size_t(1));
        QCOMPARE(lost.size(), 1);
    }

    void rawPacketsDoNotComeByTcp()
    {
        log().expectError(QStringLiteral(
            "Discarding unexpected raw data packet on datacore TCP connection! packetIdentifier: 4115"));
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        CollectingReceiver<PpmMetersData> receiver;
        CollectingReceiver<SerialisableDataPacket> end;
        QVERIFY(connect(connection, peer));
        for (int i = 0; i < 30; ++i)
            peer.send(Frames::of(meters(1)));
        peer.send(Frames::json("{}"));
        QTRY_COMPARE(end.packets.size(), size_t(1));
        QCOMPARE(receiver.packets.size(), size_t(0));
        QCOMPARE(log().count(QStringLiteral("Discarding unexpected raw")), 10);
    }

    void oversizedClaimIsNotWaitedFor()
    {
        log().expectError(QStringLiteral("announced on TCP, more than the limit"));
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        CollectingReceiver<SerialisableDataPacket> receiver;
        QVERIFY(connect(connection, peer));
        peer.send(Frames::header(0x1010, 0xFFFFFFFF));
        peer.send(Frames::json("{}"));
        QTRY_COMPARE(receiver.packets.size(), size_t(1));
    }

    void sendsByTcp()
    {
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        const SerialisableDataPacket packet(QStringLiteral("A"));
        connection.acceptPacket(packet); // nobody there: dropped
        QVERIFY(connect(connection, peer));
        connection.acceptPacket(packet);
        QTRY_COMPARE(peer.frameCount(), 1);
        QCOMPARE(peer.frames().front(), Frames::of(packet));
    }

    void requestsFollowTheReceivers()
    {
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        RawDataPacketRegistry::getInstance().setNetworkConnection(&connection);
        auto early = std::make_unique<CollectingReceiver<AesPresenceDataPacket>>();
        QVERIFY(log().contains(
            QStringLiteral("E NetworkConnection requestRawDataPacketFromServer ERROR UDP port not open")));
        log().clear();
        connection.listenForRawDataPackets(QHostAddress::LocalHost, freeUdpPort());

        QVERIFY(connect(connection, peer));
        QTRY_COMPARE(peer.registrations(0x1021), 1);
        auto first = std::make_unique<CollectingReceiver<PpmMetersData>>();
        auto second = std::make_unique<CollectingReceiver<PpmMetersData>>();
        const CollectingReceiver<SerialisableDataPacket> serialisable;
        first.reset();
        flush(connection, peer);
        QCOMPARE(peer.registrations(0x1013), 1);
        QCOMPARE(peer.deregistrations(0x1013), 0);
        QCOMPARE(peer.registrations(0x1010), 0);
        second.reset();
        QTRY_COMPARE(peer.deregistrations(0x1013), 1);
        // A stranger that leaves where nobody is makes the server stop, too.
        RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(RawDataPacket::PID_TELETEXT,
                                                                             early.get());
        QTRY_COMPARE(peer.deregistrations(0x1022), 1);

        const CollectingReceiver<PpmMetersData> third;
        flush(connection, peer);
        peer.cut();
        QTRY_VERIFY(!connection.isConnectedToHost());
        QVERIFY(connect(connection, peer));
        QTRY_COMPARE(peer.registrations(0x1013), 3);
        QCOMPARE(peer.registrations(0x1021), 2);
    }

    void secondUdpPortIsRefused()
    {
        log().expectError(
            QStringLiteral("NetworkConnection ERROR Raw Data Packet datagram port already open"));
        NetworkConnection connection(nullptr, false);
        const quint16 port = freeUdpPort();
        connection.listenForRawDataPackets(QHostAddress::LocalHost, port);
        QVERIFY(log().contains(
            QStringLiteral("NetworkConnection listening for RawDataPackets on port %1").arg(port)));
        connection.listenForRawDataPackets(QHostAddress::LocalHost, freeUdpPort());
    }

    void udpPortInUse()
    {
        log().expectError(QStringLiteral("could not be bound"));
        QUdpSocket other;
        QVERIFY(other.bind(QHostAddress::LocalHost, freeUdpPort()));
        ScriptedPeer peer;
        NetworkConnection connection(nullptr, false);
        connection.listenForRawDataPackets(QHostAddress::LocalHost, other.localPort());
        RawDataPacketRegistry::getInstance().setNetworkConnection(&connection);
        const CollectingReceiver<PpmMetersData> receiver;
        QVERIFY(connect(connection, peer));
        QTRY_COMPARE(peer.registrations(0x1013), 1);
    }

    void receivesByUdp()
    {
        log().expectError(QStringLiteral(
            "Discarding unexpected datacore (PID_SERIALISABLE_DATA) data packet on UDP socket!"));
        NetworkConnection connection(nullptr, false);
        const quint16 port = freeUdpPort();
        connection.listenForRawDataPackets(QHostAddress::LocalHost, port);
        CollectingReceiver<PpmMetersData> receiver;
        const QByteArray frame = Frames::of(meters(7));
        sendDatagram(frame.left(16), port);
        sendDatagram(frame.mid(16, frame.size() - 20), port);
        sendDatagram(frame.right(4), port);
        sendDatagram("lost " + frame.mid(10), port); // the rest of a frame whose start got lost
        sendDatagram(Frames::json("{}"), port);
        sendDatagram(Frames::raw(0x1021, "nobody wants it"), port);
        sendDatagram(frame + frame, port);
        QTRY_COMPARE(receiver.packets.size(), size_t(3));
        QCOMPARE(receiver.packets.back()->getSequenceNumber(), 7u);
        QCOMPARE(log().count(QStringLiteral("PID_SERIALISABLE_DATA")), 1);
    }

    void udpFloodIsCut()
    {
        NetworkConnection connection(nullptr, false);
        const quint16 port = freeUdpPort();
        connection.listenForRawDataPackets(QHostAddress::LocalHost, port);
        CollectingReceiver<PpmMetersData> receiver;
        const QByteArray frame = Frames::of(meters(1));
        QByteArray kilobyte;
        while (kilobyte.size() < 1024)
            kilobyte += frame;
        const int framesEach = kilobyte.size() / frame.size();
        for (int i = 0; i < 100; ++i)
            sendDatagram(kilobyte, port);
        // The intake stops with the datagram that passes the limit.
        const int taken = int(NetworkConnection::kUdpIntakeLimit / kilobyte.size()) + 1;
        QTRY_VERIFY(!receiver.packets.empty());
        QTest::qWait(50);
        QCOMPARE(int(receiver.packets.size()), taken * framesEach);
    }

    void datagramsThatCameWhileAReceiverRanAnEventLoop()
    {
        NetworkConnection connection(nullptr, false);
        const quint16 port = freeUdpPort();
        connection.listenForRawDataPackets(QHostAddress::LocalHost, port);
        CollectingReceiver<PpmMetersData> receiver;
        receiver.onPacket = [&] {
            if (receiver.packets.size() > 1)
                return;
            // One that is announced to the socket, and one that finds it has been told before.
            for (quint32 i = 2; i <= 3; ++i) {
                sendDatagram(Frames::of(meters(i)), port);
                QTest::qWait(20);
            }
        };
        sendDatagram(Frames::of(meters(1)), port);
        QTRY_COMPARE(receiver.packets.size(), size_t(3));
        sendDatagram(Frames::of(meters(4)), port);
        QTRY_COMPARE(receiver.packets.size(), size_t(4));
        QCOMPARE(receiver.packets.back()->getSequenceNumber(), 4u);
    }

    void servesRequestsByUdp()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        QTcpSocket client;
        client.connectToHost(QHostAddress::LocalHost, server.serverPort());
        QVERIFY(server.waitForNewConnection(5000));
        NetworkConnection serving(nullptr, true);
        serving.connectToHost(std::unique_ptr<QTcpSocket>(server.nextPendingConnection()));
        QVERIFY(client.waitForConnected(5000));
        QCOMPARE(serving.getUniqueConnectionID(), QStringLiteral("2130706433%1").arg(client.localPort()));

        QUdpSocket listener;
        QVERIFY(listener.bind(QHostAddress::LocalHost, freeUdpPort()));
        const CollectingReceiver<SerialisableDataPacket> processWide;
        int own = 0;
        QObject::connect(&serving, &NetworkConnection::serialisablePacketReceived, [&] { ++own; });

        client.write(Frames::of(RegisterRawDataPacket(0x1013, 0x7F000001, listener.localPort())));
        client.write(Frames::json(R"({"Class":"A"})"));
        QTRY_COMPARE(own, 1);
        QVERIFY(processWide.packets.empty());

        serving.sendRawPacket(std::make_shared<AesPresenceDataPacket>("unwanted"));
        serving.sendRawPacket(std::make_shared<PpmMetersData>(meters(3)));
        QByteArray received;
        const QByteArray expected = Frames::of(meters(3));
        while (received.size() < expected.size() && listener.waitForReadyRead(5000)) {
            QByteArray part(16384, '\0');
            part.resize(int(listener.readDatagram(part.data(), part.size())));
            received += part;
        }
        QCOMPARE(received, expected);

        client.write(Frames::of(DeregisterRawDataPacket(0x1013, 0x7F000001, listener.localPort())));
        client.write(Frames::json(R"({"Class":"B"})"));
        QTRY_COMPARE(own, 2);
        serving.sendRawPacket(std::make_shared<PpmMetersData>(meters(4)));
        QVERIFY(!listener.waitForReadyRead(100));
    }

    void receiversMayDoAnything_data()
    {
        QTest::addColumn<QString>("act");
        for (const char* act : {"disconnect", "disconnect in a loop of its own", "reconnect",
                                "destroy the connection", "destroy the connection in a loop of its own",
                                "destroy the next receiver", "leave", "spin the event loop"})
            QTest::newRow(act) << QString::fromLatin1(act);
    }
    void receiversMayDoAnything()
    {
        QFETCH(QString, act);
        ScriptedPeer peer;
        auto connection = std::make_unique<NetworkConnection>(nullptr, false);
        auto second = std::make_unique<CollectingReceiver<SerialisableDataPacket>>();
        auto first = std::make_unique<CollectingReceiver<SerialisableDataPacket>>(); // called first
        int lost = 0;
        QVERIFY(connect(*connection, peer));
        QObject::connect(connection.get(), &NetworkConnection::disconnectedFromHost, [&] { ++lost; });

        bool acted = false;
        first->onPacket = [&, act] {
            if (std::exchange(acted, true))
                return;
            if (act == QLatin1String("disconnect"))
                connection->disconnectFromHost();
            else if (act.endsWith(QLatin1String("in a loop of its own"))) {
                QTimer::singleShot(0, [&, destroy = act.startsWith(QLatin1String("destroy"))] {
                    destroy ? connection.reset() : connection->disconnectFromHost();
                });
                QTest::qWait(20);
            } else if (act == QLatin1String("reconnect"))
                connection->connectToHost(QHostAddress(QHostAddress::LocalHost), peer.port());
            else if (act == QLatin1String("destroy the connection"))
                connection.reset();
            else if (act == QLatin1String("destroy the next receiver"))
                second.reset();
            else if (act == QLatin1String("leave"))
                RawDataPacketRegistry::getInstance().deregisterRawDataPacketReceiver(
                    RawDataPacket::PID_SERIALISABLE_DATA, first.get());
            else {
                peer.send(Frames::json(R"({"Class":"C"})"));
                QTest::qWait(20);
            }
        };
        // Both frames arrive in one read; what acts on the first decides about the second.
        peer.send(Frames::json(R"({"Class":"A"})") + Frames::json(R"({"Class":"B"})"));
        QTRY_VERIFY(acted);
        QTest::qWait(20);

        if (act.startsWith(QLatin1String("disconnect"))) {
            QCOMPARE(first->packets.size(), size_t(1));
            QCOMPARE(lost, 1);
        } else if (act == QLatin1String("reconnect")) {
            QCOMPARE(first->packets.size(), size_t(1));
            QVERIFY(connection->isConnectedToHost());
            QTRY_COMPARE(peer.connectionCount(), 2);
            peer.send(Frames::json(R"({"Class":"C"})"));
            QTRY_COMPARE(first->packets.size(), size_t(2));
        } else if (act.startsWith(QLatin1String("destroy the connection"))) {
            QCOMPARE(first->packets.size(), size_t(1));
            QTRY_VERIFY(peer.client()->state() == QAbstractSocket::UnconnectedState);
        } else if (act == QLatin1String("spin the event loop")) {
            QCOMPARE(second->packets.size(), size_t(3));
        } else if (act == QLatin1String("leave")) {
            QCOMPARE(first->packets.size(), size_t(1));
            QCOMPARE(second->packets.size(), size_t(2));
        } else if (act == QLatin1String("destroy the next receiver")) {
            QCOMPARE(first->packets.size(), size_t(2));
        }
    }

    void errorTexts()
    {
        // All that a socket without encryption can have, by Qt's own names.
        const auto errors = QMetaEnum::fromType<QAbstractSocket::SocketError>();
        int named = 0;
        for (int i = 0; i < errors.keyCount(); ++i) {
            const auto error = static_cast<QAbstractSocket::SocketError>(errors.value(i));
            const QString text = NetworkConnection::socketErrorAsString(error);
            if (text.startsWith(QLatin1String("illegal")))
                continue;
            QCOMPARE(text, QString(QLatin1String("QAbstractSocket::") + QLatin1String(errors.key(i))));
            ++named;
        }
        QCOMPARE(named, 19);
        QCOMPARE(NetworkConnection::socketErrorAsString(QAbstractSocket::OperationError),
                 QStringLiteral("illegal value for QAbstractSocket::SocketError: 19"));
    }

    void cleanup()
    {
        RawDataPacketRegistry::getInstance().setNetworkConnection(nullptr);
        WzTest::cleanup();
    }

private:
    /// Connects and waits until the peer has taken the connection up.
    static bool connect(NetworkConnection& connection, ScriptedPeer& peer)
    {
        const int before = peer.connectionCount();
        return connection.connectToHost(QHostAddress(QHostAddress::LocalHost), peer.port())
            && QTest::qWaitFor([&] { return peer.connectionCount() > before; });
    }

    /// Returns when the peer has received everything sent so far.
    static void flush(NetworkConnection& connection, ScriptedPeer& peer)
    {
        const int before = peer.frameCount();
        connection.acceptPacket(SerialisableDataPacket(QStringLiteral("end")));
        QTRY_VERIFY(peer.frameCount() > before && peer.frames().back().contains("\"end\""));
    }
};

WZ_TEST_CLASS(tst_NetworkConnection)
#include "tst_NetworkConnection.moc"
