#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreManipulator.h"
#include "datacore/DatacorePathRadixTreePacket.h"
#include "datacore/WzClientDatacoreManager.h"

#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"

#include "support/Frames.h"
#include "support/ScriptedPeer.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

SerialisableDataPacket packetOf(QByteArray json)
{
    return SerialisableDataPacket::fromCompactJson(json.replace('\'', '"'));
}

const char kTrees[] =
    "{'Class':'DatacorePathRadixTreePacket',"
    "'CommandTreeObject':{'Core':'commandCoreRouter','Kids':[{'Core':'go','Kids':[]}]},"
    "'ConfigTreeObject':{'Core':'configCoreRouter','Kids':[{'Core':'a','Kids':[{'Core':'b'}]}]},"
    "'StatusTreeObject':{'Core':'statusCoreRouter','Kids':[]}}";

QByteArray valueJson(const char* path, const char* name, const char* data,
                     const QByteArray& more = QByteArray())
{
    return QByteArray("{'Class':'DatacorePacket','Datacore':{'") + name + "':{'class':'C','data':'" + data
        + "'}},'Path':'" + path + "'" + more + "}";
}

/// A client's mirror, connected to a peer over the loopback address.
class Mirror {
public:
    Mirror()
        : connection(nullptr, false)
        , manager(connection, distributor)
    {
    }
    void connectToPeer()
    {
        QVERIFY(connection.connectToHost(QHostAddress(QHostAddress::LocalHost), peer.port()));
        QTRY_VERIFY(peer.client());
    }
    ClientDatacoreRegistry& registry() { return manager.getClientDatacoreRegistry(); }
    ClientDatacore* node(const char* path) { return registry().lookupDatacoreFromPath(text(path)); }
    void receive(const QByteArray& json) { distributor.acceptPacket(packetOf(json)); }
    void receiveTrees() { receive(kTrees); }

    ScriptedPeer peer;
    NetworkConnection connection;
    SerialisableDataPacketDistributor distributor;
    WzClientDatacoreManager manager;
};

} // namespace

class tst_ClientDatacoreMirror : public WzTest {
    Q_OBJECT

private slots:
    void pathsOfATree()
    {
        Mirror mirror;
        const RadixTreeNode root{text("r"), {{text("a"), {{text("b"), {}}}}, {text("c"), {}}}};
        QCOMPARE(mirror.manager.generateDatacorePathsFromRadixTreeNode(root),
                 (QStringList{text("r"), text("r/a"), text("r/a/b"), text("r/c")}));
    }

    void populatesOnce()
    {
        Mirror mirror;
        QStringList events;
        connect(&mirror.registry(), &ClientDatacoreRegistry::registryHasBeenCleared, this,
                [&] { events << text("cleared"); });
        connect(&mirror.registry(), &ClientDatacoreRegistry::registryHasBeenPopulated, this,
                [&] { events << text("populated"); });
        mirror.receiveTrees();
        mirror.receiveTrees();
        QCOMPARE(events, (QStringList{text("cleared"), text("populated")}));
        for (const char* path : {"configCoreRouter", "configCoreRouter/a", "configCoreRouter/a/b",
                                 "statusCoreRouter", "commandCoreRouter/go"})
            QVERIFY2(mirror.node(path), path);
        QVERIFY2(!mirror.node(""), "trees that are not in the packet have no nodes");
        QCOMPARE(mirror.node("configCoreRouter/a/b")->getInstanceName(), text("b"));
        QCOMPARE(mirror.node("configCoreRouter/a/b")->getPath(), text("b"));
    }

    void refusedTreesLeaveTheOthers()
    {
        log().expectError(text("tree refused"));
        Mirror mirror;
        mirror.receive("{'Class':'DatacorePathRadixTreePacket','ConfigTreeObject':"
                       + QByteArray("{'Core':'x','Kids':[").repeated(100) + QByteArray("]}").repeated(100)
                       + ",'StatusTreeObject':{'Core':'s'}}");
        QVERIFY(mirror.node("s") && !mirror.node("x") && !mirror.node(""));
        QCOMPARE(log().lines().size(), 1);
    }

    void theFirstOfTwoPathsStays()
    {
        const auto refused = text("ClientDatacoreRegistry: Cannot create two cores for path 'r/a'.");
        log().expectError(refused);
        Mirror mirror;
        mirror.receive("{'Class':'DatacorePathRadixTreePacket','ConfigTreeObject':{'Core':'r','Kids':["
                       "{'Core':'a','Kids':[{'Core':'b'}]},{'Core':'a','Kids':[{'Core':'c'}]}]}}");
        QCOMPARE(log().count(refused), 1);
        QVERIFY(mirror.node("r/a") && mirror.node("r/a/b") && mirror.node("r/a/c"));
    }

    void valuesFindTheirNodes()
    {
        Mirror mirror;
        mirror.receive(valueJson("statusCoreRouter", "statusCoreRouter", "1"));
        mirror.receiveTrees();
        mirror.receive(valueJson("statusCoreRouter", "statusCoreRouter", "2"));
        mirror.receive(valueJson("statusCoreRouter/x", "x", "3"));
        mirror.receive("{'Class':'DatacorePacket'}");
        QCOMPARE(mirror.node("statusCoreRouter")->getData(), text("2"));
        QCOMPARE(
            log().lines(),
            (QStringList{
                text("W Client datacore populator: Registry is empty, no way to populate: statusCoreRouter"),
                text("W Client datacore populator: Registry does not contain datacore with path: "
                     "statusCoreRouter/x"),
                text("W Client datacore populator: Registry does not contain datacore with path: ")}));

        ClientDatacorePopulator populator(mirror.connection, mirror.registry(), mirror.distributor);
        const auto foreign =
            text("ClientDatacorePopulator::acceptPacket: Couldn't create a DatacorePacket from "
                 "{\"Class\":\"Other\"}");
        log().expectError(foreign);
        populator.acceptPacket(packetOf("{'Class':'Other'}"));
        QCOMPARE(log().count(foreign), 1);
    }

    /// A local write on the wire, and whose echo it is that settles it.
    void writesAndEchoes()
    {
        Mirror mirror;
        mirror.connectToPeer();
        mirror.receiveTrees();
        ClientDatacore* const node = mirror.node("configCoreRouter/a/b");
        mirror.receive(valueJson("configCoreRouter/a/b", "b", "0"));
        QVERIFY(mirror.peer.frames().empty());

        node->setDataUint(7);
        QTRY_COMPARE(mirror.peer.frameCount(), 1);
        const QByteArray id = mirror.connection.getLocalId().toLatin1();
        QCOMPARE(mirror.peer.frames().front(),
                 Frames::json("{\"Class\":\"DatacorePacket\",\"ClientID\":\"" + id
                              + "\",\"Datacore\":{\"b\":{\"class\":\"C\",\"data\":\"7\"}},\"PacketID\":0,"
                                "\"Path\":\"configCoreRouter/a/b\"}"));

        QSignalSpy inSync(node, &ClientDatacore::datacoreInSyncWithServer);
        mirror.receive(valueJson("configCoreRouter/a/b", "b", "5", ",'ClientID':'1','PacketID':0"));
        QCOMPARE(inSync.count(), 0);
        QCOMPARE(node->getData(), text("5"));
        QSignalSpy updated(node, &ClientDatacore::datacoreUpdated);
        mirror.peer.send(
            Frames::json(valueJson("configCoreRouter/a/b", "b", "7", ",'ClientID':'" + id + "','PacketID':0")
                             .replace('\'', '"')));
        QVERIFY(updated.wait());
        QCOMPARE(inSync.count(), 1);
        QCOMPARE(updated.count(), 1);
        QCOMPARE(mirror.peer.frameCount(), 1);
    }

    void aLostConnectionClearsAndANewOneBuildsAnew()
    {
        Mirror mirror;
        mirror.connectToPeer();
        mirror.peer.send(Frames::json(QByteArray(kTrees).replace('\'', '"')));
        QTRY_VERIFY(mirror.node("commandCoreRouter/go"));
        const QPointer<ClientDatacore> old = mirror.node("commandCoreRouter/go");
        QSignalSpy cleared(&mirror.registry(), &ClientDatacoreRegistry::registryHasBeenCleared);
        // In the signal the old node is there still, but is not found, and sends nothing.
        connect(&mirror.registry(), &ClientDatacoreRegistry::registryHasBeenCleared, this, [&] {
            QVERIFY(mirror.registry().isEmpty());
            if (old)
                old->setDataString(text("late"));
        });
        mirror.peer.cut();
        QVERIFY(cleared.wait());
        QTRY_VERIFY(!old);

        mirror.connectToPeer();
        mirror.receiveTrees();
        mirror.node("commandCoreRouter/go")->setDataString(text("1"));
        QTRY_COMPARE(mirror.peer.frameCount(), 1);
        QVERIFY(mirror.peer.frames().front().contains("\"data\":\"1\""));
    }

    /// The connection may go on: a server can announce other trees at any time.
    void aClearedNodeSendsNothing()
    {
        Mirror mirror;
        mirror.connectToPeer();
        mirror.receiveTrees();
        ClientDatacore* const old = mirror.node("commandCoreRouter/go");
        mirror.registry().clearRegistry();
        old->setDataString(text("late"));
        mirror.receiveTrees();
        mirror.node("commandCoreRouter/go")->setDataString(text("1"));
        QTRY_VERIFY(mirror.peer.frameCount() > 0);
        QVERIFY(mirror.peer.frames().front().contains("\"data\":\"1\""));
    }

    void clearingFromWithinASlotOfANode()
    {
        Mirror mirror;
        mirror.receiveTrees();
        const QPointer<ClientDatacore> old = mirror.node("statusCoreRouter");
        connect(old, &ClientDatacore::datacoreUpdated, this, [&] {
            mirror.registry().clearRegistry();
            mirror.receiveTrees();
        });
        mirror.receive(valueJson("statusCoreRouter", "statusCoreRouter", "1"));
        QVERIFY(mirror.node("statusCoreRouter") && mirror.node("statusCoreRouter") != old);
        QTRY_VERIFY(!old);
    }

    void lookupByRequest()
    {
        Mirror mirror;
        mirror.receiveTrees();
        std::vector<ClientDatacore*> answers;
        connect(&mirror.registry(), &ClientDatacoreRegistry::lookupRequestResult, this,
                [&](ClientDatacore* node) { answers.push_back(node); });
        mirror.registry().requestLookupDatacoreFromPath(text("statusCoreRouter"));
        mirror.registry().requestLookupDatacoreFromPath(text("x"));
        QCOMPARE(answers, (std::vector<ClientDatacore*>{mirror.node("statusCoreRouter"), nullptr}));
    }

    void manipulatorWaitsReadsAndSets()
    {
        Mirror mirror;
        mirror.connectToPeer();
        ClientDatacoreManipulator manipulator(mirror.registry());
        ClientDatacoreManipulator other(mirror.registry());
        const QString path = text("commandCoreRouter/go");
        QVERIFY(!manipulator.setDatacoreValue(path, text("1")));
        QVERIFY(log().contains(text("there is no datacore 'commandCoreRouter/go' to set")));

        QTimer::singleShot(0, this, [&] { mirror.receiveTrees(); });
        QTimer::singleShot(1, this, [&] { mirror.receive(valueJson("commandCoreRouter/go", "go", "idle")); });
        QVERIFY(manipulator.waitForDatacore(path));
        bool ok = false;
        QVERIFY(other.getDatacoreValue(text("x"), ok).isEmpty());
        QVERIFY(!ok);
        QCOMPARE(manipulator.getDatacoreValue(path, ok), QStringList{text("idle")});
        QVERIFY(ok);

        QVERIFY(manipulator.setDatacoreValue(path, QStringList{text("a"), text("b")}));
        QCOMPARE(mirror.node("commandCoreRouter/go")->getDataList(), (QStringList{text("a"), text("b")}));
        QVERIFY(!manipulator.waitForEcho(1ms));
        QVERIFY(log().contains(text("the server did not echo the write")));
        const QByteArray id = mirror.connection.getLocalId().toLatin1();
        QTimer::singleShot(0, this, [&] {
            mirror.receive(
                valueJson("commandCoreRouter/go", "go", "a", ",'ClientID':'" + id + "','PacketID':0"));
        });
        QVERIFY(manipulator.waitForEcho());
        QCOMPARE(manipulator.getDatacoreValue(path, ok), QStringList{text("a")});
    }

    void manipulatorGivesUp()
    {
        Mirror mirror;
        ClientDatacoreManipulator manipulator(mirror.registry());
        QVERIFY(!manipulator.waitForDatacore(text("commandCoreRouter/go"), 1ms));
        QVERIFY(log().contains(text("there was no datacore 'commandCoreRouter/go' within 1 ms")));
        mirror.receiveTrees();
        QVERIFY(!manipulator.waitForDatacore(text("commandCoreRouter/go"), 1ms));
        QVERIFY(log().contains(text("the server sent no value for 'commandCoreRouter/go' within 1 ms")));
        QVERIFY(manipulator.setDatacoreValue(text("commandCoreRouter/go"), text("1")));
        QTimer::singleShot(0, this, [&] { mirror.registry().clearRegistry(); });
        QVERIFY(!manipulator.waitForEcho());
        QVERIFY(log().contains(text("the datacore written was lost")));
    }
};

WZ_TEST_CLASS(tst_ClientDatacoreMirror)
#include "tst_ClientDatacoreMirror.moc"
