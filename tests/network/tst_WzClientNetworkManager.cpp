#include "network/ClientConstants.h"
#include "network/RawDataPacketRegistry.h"
#include "network/WzClientNetworkManager.h"
#include "network/packets/PpmMetersData.h"

#include "CollectingReceiver.h"
#include "support/ScriptedPeer.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QSignalSpy>

using namespace std::chrono_literals;

/// Uses the fixed ports; run with the lock "ports".
class tst_WzClientNetworkManager : public WzTest {
    Q_OBJECT

private slots:
    void constantsOfEachVariant()
    {
        QVERIFY(ClientConstants().getDefaultWzServerAddress().isNull());
        QCOMPARE(ClientConstants().getDefaultWzClientAddress(), QHostAddress(QHostAddress::Any));
        QCOMPARE(ClientConstantsTn40().getDefaultWzServerAddress().toString(),
                 QStringLiteral("100.64.200.102"));
        QCOMPARE(ClientConstantsTn40().getDefaultWzClientAddress().toString(),
                 QStringLiteral("100.64.200.101"));
        QCOMPARE(ClientConstantsFactory::instance()->getDefaultWzServerAddress().toString(),
                 QStringLiteral("127.0.0.1"));
        QCOMPARE(ClientConstantsFactory::instance(), ClientConstantsFactory::instance());
    }

    void connectsLosesAndConnectsAgain()
    {
        auto peer = std::make_unique<ScriptedPeer>(NetworkConnection::kServerTcpPort);
        QVERIFY(peer->isListening());
        WzClientNetworkManager manager;
        const CollectingReceiver<PpmMetersData> receiver;
        QSignalSpy connected(&manager, &WzClientNetworkManager::connectedToServer);
        QSignalSpy lost(&manager, &WzClientNetworkManager::connectionToServerLost);
        QSignalSpy failed(&manager, &WzClientNetworkManager::reconnectAttemptFailed);
        QSignalSpy address(&manager, &WzClientNetworkManager::newHostAddressSet);
        QSignalSpy automatic(&manager, &WzClientNetworkManager::newAutoConnectStateSet);

        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);
        QCOMPARE(address.takeFirst().front().toString(), QStringLiteral("127.0.0.1"));
        QCOMPARE(automatic.takeFirst().front().toBool(), true);
        QCOMPARE(peer->connectionCount(), 0);
        QVERIFY(connected.wait(5000));
        QTRY_COMPARE(peer->registrations(0x1013), 1);

        // The same address changes nothing.
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);
        QVERIFY(manager.getConnectionToServer().isConnectedToHost());
        QVERIFY(address.isEmpty() && automatic.isEmpty());

        peer.reset();
        QTRY_COMPARE(lost.size(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(failed.size() == 1, 5000);
        peer = std::make_unique<ScriptedPeer>(NetworkConnection::kServerTcpPort);
        QTRY_VERIFY_WITH_TIMEOUT(connected.size() == 2, 5000);
        QTRY_COMPARE(peer->registrations(0x1013), 1);
        QCOMPARE(lost.size(), 1);
    }

    void withoutAutoConnectALossIsFinal()
    {
        ScriptedPeer peer(NetworkConnection::kServerTcpPort);
        WzClientNetworkManager manager(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), false);
        manager.onRetryTimerTimeout();
        QTRY_COMPARE(peer.connectionCount(), 1);
        QSignalSpy lost(&manager, &WzClientNetworkManager::connectionToServerLost);
        peer.cut();
        QTRY_COMPARE(lost.size(), 1);
        QTest::qWait(2300);
        QCOMPARE(peer.connectionCount(), 1);
    }

    void theUserMayConnectAndGiveUp()
    {
        ScriptedPeer peer(NetworkConnection::kServerTcpPort);
        WzClientNetworkManager manager(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        QSignalSpy lost(&manager, &WzClientNetworkManager::connectionToServerLost);
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);
        manager.connectNow();
        QVERIFY(manager.getConnectionToServer().isConnectedToHost());
        QTRY_COMPARE(peer.connectionCount(), 1);
        manager.connectNow(); // has what it wants
        manager.giveUp();
        QCOMPARE(lost.size(), 1);
        QTest::qWait(2300);
        QCOMPARE(peer.connectionCount(), 1);
        manager.connectNow();
        QTRY_COMPARE(peer.connectionCount(), 2);
    }

    /// Also of a user who has switched automatic connecting off.
    void whoWantsToConnectNowIsTriedFor()
    {
        WzClientNetworkManager manager(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), false);
        manager.giveUp();
        QSignalSpy failed(&manager, &WzClientNetworkManager::reconnectAttemptFailed);
        manager.connectNow();
        QCOMPARE(failed.size(), 1);
        ScriptedPeer peer(NetworkConnection::kServerTcpPort);
        QTRY_COMPARE_WITH_TIMEOUT(peer.connectionCount(), 1, 5000);
    }

    void aNewAddressIsALoss()
    {
        ScriptedPeer peer(NetworkConnection::kServerTcpPort);
        ScriptedPeer other(NetworkConnection::kServerTcpPort, QHostAddress(QStringLiteral("127.0.0.2")));
        WzClientNetworkManager manager(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);
        manager.onRetryTimerTimeout();
        QTRY_COMPARE(peer.connectionCount(), 1);

        QSignalSpy lost(&manager, &WzClientNetworkManager::connectionToServerLost);
        manager.configureConnectionToServer(QHostAddress(QStringLiteral("127.0.0.2")), true);
        QCOMPARE(lost.size(), 1);
        QVERIFY(!manager.getConnectionToServer().isConnectedToHost());
        QTRY_COMPARE_WITH_TIMEOUT(other.connectionCount(), 1, 5000);
        QCOMPARE(peer.connectionCount(), 1);
    }

    void reconfiguredByTheListenerOfALoss()
    {
        ScriptedPeer peer(NetworkConnection::kServerTcpPort);
        WzClientNetworkManager manager(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);
        manager.onRetryTimerTimeout();
        QTRY_COMPARE(peer.connectionCount(), 1);
        QObject::connect(&manager, &WzClientNetworkManager::connectionToServerLost, this, [&] {
            manager.configureConnectionToServer(QHostAddress(QStringLiteral("127.0.0.2")), true);
            manager.onRetryTimerTimeout();
        });
        peer.cut();
        QTRY_COMPARE(manager.getHostAddress().toString(), QStringLiteral("127.0.0.2"));
        QVERIFY(!manager.getConnectionToServer().isConnectedToHost());
    }

    void reconnectedByTheListenerOfALoss()
    {
        ScriptedPeer peer(NetworkConnection::kServerTcpPort);
        WzClientNetworkManager manager(nullptr, WzClientNetworkManager::RawData::DoNotListen);
        manager.configureConnectionToServer(QHostAddress(QHostAddress::LocalHost), true);
        manager.onRetryTimerTimeout();
        QTRY_COMPARE(peer.connectionCount(), 1);
        QSignalSpy lost(&manager, &WzClientNetworkManager::connectionToServerLost);
        connect(&manager, &WzClientNetworkManager::connectionToServerLost, &manager,
                &WzClientNetworkManager::onRetryTimerTimeout);
        peer.cut();
        QTRY_COMPARE(peer.connectionCount(), 2);
        // The new connection is left alone.
        QTest::qWait(2300);
        QCOMPARE(lost.size(), 1);
        QCOMPARE(peer.connectionCount(), 2);
    }
};

WZ_TEST_CLASS(tst_WzClientNetworkManager)
#include "tst_WzClientNetworkManager.moc"
