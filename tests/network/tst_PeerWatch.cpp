#include "network/NetworkConnection.h"
#include "network/PeerWatch.h"
#include "network/SerialisableDataPacket.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

namespace {

/// An own network namespace of this thread's, for as long as it lives. Sockets stay in the one that they were
/// made in.
class NetworkNamespace {
public:
    NetworkNamespace()
        : m_before(::open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC))
    {
        if (::unshare(CLONE_NEWNET) == 0)
            m_own = ::open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
        leave();
    }
    ~NetworkNamespace()
    {
        ::close(m_own);
        ::close(m_before);
    }
    Q_DISABLE_COPY_MOVE(NetworkNamespace)

    bool exists() const { return m_own >= 0; }
    QString path() const { return QStringLiteral("/proc/%1/fd/%2").arg(::getpid()).arg(m_own); }

    template<typename Action>
    auto run(Action&& action) const
    {
        ::setns(m_own, CLONE_NEWNET);
        const auto result = action();
        leave();
        return result;
    }
    /// Runs the ip tool with the words of @p command in this namespace.
    bool ip(const QString& command) const
    {
        return run(
            [&] { return QProcess::execute(QStringLiteral("ip"), command.split(QLatin1Char(' '))) == 0; });
    }

private:
    void leave() const { ::setns(m_before, CLONE_NEWNET); }

    int m_before = -1;
    int m_own = -1;
};

} // namespace

/// Two hosts in network namespaces of their own, joined by a cable that a test can cut without either end
/// being told.
class tst_PeerWatch : public WzTest {
    Q_OBJECT

private slots:
    void silentLossIsNoticedAtBothEnds_data()
    {
        QTest::addColumn<bool>("dataUnderWay");
        QTest::newRow("idle") << false;
        QTest::newRow("data under way") << true;
    }
    void silentLossIsNoticedAtBothEnds()
    {
        QFETCH(bool, dataUnderWay);
        const NetworkNamespace here;
        const NetworkNamespace there;
        if (!here.exists() || !there.exists())
            QSKIP("may not make network namespaces here");
        if (!here.ip(QStringLiteral("link add cable0 type veth peer name cable1 netns ") + there.path()))
            QSKIP("may not join network namespaces here, or the ip tool is missing");
        QVERIFY(here.ip(QStringLiteral("addr add 10.77.0.1/24 dev cable0"))
                && here.ip(QStringLiteral("link set cable0 up")));
        QVERIFY(there.ip(QStringLiteral("addr add 10.77.0.2/24 dev cable1"))
                && there.ip(QStringLiteral("link set cable1 up")));

        QTcpServer server;
        QVERIFY(there.run([&] { return server.listen(QHostAddress(QStringLiteral("10.77.0.2"))); }));
        NetworkConnection client(nullptr, false);
        // The cable takes a moment before it carries anything.
        QVERIFY(QTest::qWaitFor([&] {
            return here.run(
                [&] { return client.connectToHost(server.serverAddress(), server.serverPort()); });
        }));
        QVERIFY(server.waitForNewConnection(5000));
        NetworkConnection serving(nullptr, true);
        serving.connectToHost(std::unique_ptr<QTcpSocket>(server.nextPendingConnection()));

        QSignalSpy clientLost(&client, &NetworkConnection::disconnectedFromHost);
        QSignalSpy servingLost(&serving, &NetworkConnection::disconnectedFromHost);
        if (!dataUnderWay) {
            // As long as the cable is whole, probing ends nothing.
            QTest::qWait(PeerWatch::kLongestSilence.count() * 1000 + 1500);
            QVERIFY(clientLost.isEmpty() && servingLost.isEmpty());
        }

        // From here on whatever is sent to either end is dropped without an answer.
        QElapsedTimer sinceCut;
        sinceCut.start();
        QVERIFY(there.ip(QStringLiteral("addr del 10.77.0.2/24 dev cable1")));
        if (dataUnderWay) {
            client.acceptPacket(SerialisableDataPacket(QStringLiteral("A")));
            serving.acceptPacket(SerialisableDataPacket(QStringLiteral("B")));
        }
        QTRY_VERIFY_WITH_TIMEOUT(!clientLost.isEmpty() && !servingLost.isEmpty(), 10000);
        QVERIFY2(sinceCut.elapsed() < 5500, qPrintable(QString::number(sinceCut.elapsed())));
    }
};

WZ_TEST_CLASS(tst_PeerWatch)
#include "tst_PeerWatch.moc"
