#include "datacore/DatacoreBase.h"
#include "datacore/DatacorePacket.h"
#include "datacore/DatacorePathRadixTreePacket.h"
#include "datacore/RadixTreeReader.h"

#include "JsonText.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QByteArray sent(const SerialisableDataPacket& packet)
{
    return packet.serialise().replace('"', '\'');
}

SerialisableDataPacket received(QByteArray json)
{
    json.replace('\'', '"');
    return SerialisableDataPacket::fromCompactJson(json);
}

/// A tree as the text of names with their children in brackets.
QByteArray shape(const RadixTreeNode& node)
{
    QByteArray children;
    for (const RadixTreeNode& child : node.children)
        children += shape(child);
    return node.name.toUtf8() + '(' + children + ')';
}

template<typename Packet>
Packet as(const SerialisableDataPacket& packet)
{
    bool ok = false;
    return SerialisableDataPacket::createChildTypePacketFromParentTypePacket<Packet>(packet, ok);
}

} // namespace

class tst_DatacorePackets : public WzTest {
    Q_OBJECT

private slots:
    void datacorePacketOnTheWire()
    {
        DatacoreBase node(text("C"), text("n"), nullptr, text("1"));
        QJsonObject json;
        std::list<DatacoreJsonMessage> messages;
        node.appendDataToJson(QString(), json, true, false, messages);

        const QByteArray bare =
            "{'Class':'DatacorePacket','Datacore':{'n':{'class':'C','data':'1'}},'Path':'a/n'}";
        const DatacorePacket two(json, text("a/n"));
        QVERIFY(!two.containsClientID() && !two.containsPacketID());
        QCOMPARE(sent(two), bare);
        QCOMPARE(sent(DatacorePacket::fromNode(node, text("a/n"), true)), bare);

        const QByteArray full = "{'Class':'DatacorePacket','ClientID':'12','Datacore':{'n':{'class':'C',"
                                "'data':'1'}},'PacketID':7,'Path':'a/n'}";
        QCOMPARE(sent(DatacorePacket(text("12"), 7, json, text("a/n"))), full);
        QCOMPARE(
            sent(DatacorePacket::fromNode(node, text("a/n"), true, DatacorePacket::Writer{text("12"), 7})),
            full);
        DatacorePacket changed = *DatacorePacket::fromPacket(received(full));
        changed.setPacketID(8);
        QCOMPARE(changed.getClientID(), text("12"));
        QCOMPARE(sent(changed), QByteArray(full).replace(":7,", ":8,"));
        QVERIFY(!DatacorePacket::fromPacket(received("{'Class':'datacorePacket'}")));
    }

    /// The getters read the received text or the object; both must say the same.
    void datacorePacketAsReceived_data()
    {
        QTest::addColumn<QByteArray>("members");
        QTest::addColumn<QString>("seen");
        QTest::newRow("all") << QByteArray("'ClientID':'a','PacketID':-3,'Path':'p','Datacore':{}")
                             << "1111 a -3 p";
        QTest::newRow("none") << QByteArray("'x':0") << "0000  0 ";
        QTest::newRow("other spelling") << QByteArray("'ClientId':'a','PacketId':1,'path':'p'") << "0000  0 ";
        QTest::newRow("wrong types") << QByteArray("'ClientID':1,'PacketID':'2','Path':[],'Datacore':1")
                                     << "1111  0 ";
        QTest::newRow("too large") << QByteArray("'PacketID':4294967296,'Path':null") << "0110  0 ";
    }
    void datacorePacketAsReceived()
    {
        QFETCH(QByteArray, members);
        for (const QByteArray extra : {"", ",'forQt':0.5"}) {
            const auto packet =
                *DatacorePacket::fromPacket(received("{'Class':'DatacorePacket'," + members + extra + "}"));
            const QString seen = QString::number(packet.containsClientID())
                + QString::number(packet.containsPacketID()) + QString::number(packet.containsDatacorePath())
                + QString::number(packet.containsDatacoreObject()) + QLatin1Char(' ') + packet.getClientID()
                + QLatin1Char(' ') + QString::number(packet.getPacketID()) + QLatin1Char(' ')
                + packet.getDatacorePath();
            QTEST(seen, "seen");
            QVERIFY(packet.getDatacoreJsonObject().isEmpty());
        }
    }

    void aPacketIsReadAgainAfterAnother()
    {
        const auto first = *DatacorePacket::fromPacket(received("{'Class':'DatacorePacket','Path':'1'}"));
        const auto second = *DatacorePacket::fromPacket(received("{'Class':'DatacorePacket','Path':'2'}"));
        QCOMPARE(first.getDatacorePath() + second.getDatacorePath() + first.getDatacorePath(), text("121"));
    }

    void populatesNodes()
    {
        DatacoreBase node(text("n"), nullptr, text("old"));
        std::list<DatacoreJsonMessage> messages;
        for (const char* value : {"1", "2"}) {
            const QByteArray extra = value[0] == '2' ? ",'forQt':0.5" : "";
            const auto packet = *DatacorePacket::fromPacket(
                received("{'Class':'DatacorePacket','Datacore':{'n':{'class':'','data':'" + QByteArray(value)
                         + "'}}" + extra + "}"));
            QVERIFY(packet.populate(node, false, messages));
            QCOMPARE(node.getData(), text(value));
        }
        QVERIFY(!DatacorePacket().populate(node, false, messages));
        QCOMPARE(node.getData(), text("2"));
    }

    void treeOnTheWire()
    {
        DatacoreBase root(text("r"), nullptr);
        DatacoreBase b(text("b"), &root);
        DatacoreBase a(text("a"), &root);
        DatacoreBase c(text("c"), &a);
        DatacorePathRadixTreePacket packet;
        QVERIFY(!packet.containsCommandTree() && !packet.containsClientId());
        packet.setCommandTree(root);
        packet.setDestinationClientId(text("5"));
        QCOMPARE(sent(packet),
                 QByteArray("{'Class':'DatacorePathRadixTreePacket','ClientId':'5','CommandTreeObject':"
                            "{'Core':'r','Kids':[{'Core':'a','Kids':[{'Core':'c','Kids':[]}]},"
                            "{'Core':'b','Kids':[]}]}}"));
        packet.setConfigTree(a);
        packet.setStatusTree(b);
        packet.setNonPersistentConfigTree(c);
        packet.setPersistentConfigTree(root);
        QCOMPARE(sent(DatacorePathRadixTreePacket::fromRoots(text("5"), {&root, &a, &c, &root, &b})),
                 sent(packet));
    }

    void eachTreeMayBeMissing()
    {
        DatacoreBase root(text("r"), nullptr);
        DatacoreBase a(text("a"), &root);
        const auto packet = DatacorePathRadixTreePacket::fromRoots(text("5"), {.command = &root});
        const auto back = as<DatacorePathRadixTreePacket>(received(sent(packet)));
        QVERIFY(back.containsCommandTree() && !back.containsConfigTree() && back.containsClientId());
        QCOMPARE(shape(back.getRootNodeForCommandTree()), QByteArray("r(a())"));
        QCOMPARE(back.getDestinationClientId(), text("5"));
    }

    void eachTreeHasItsKey()
    {
        const auto packet = as<DatacorePathRadixTreePacket>(
            received("{'Class':'DatacorePathRadixTreePacket','StatusTreeObject':{'Core':'s'},"
                     "'NonPersistentConfigTreeObject':{'Core':'n'},'ConfigTreeObject':{'Core':'c'},"
                     "'CommandTreeObject':{'Core':'x'},'PersistentConfigTreeObject':{'Core':'p'}}"));
        QVERIFY(packet.containsStatusTree() && packet.containsNonPersistentConfigTree()
                && packet.containsConfigTree() && packet.containsCommandTree()
                && packet.containsPersistentConfigTree());
        QCOMPARE(packet.getRootNodeForStatusTree().name, text("s"));
        QCOMPARE(packet.getRootNodeForNonPersistentConfigTree().name, text("n"));
        QCOMPARE(packet.getRootNodeForConfigTree().name, text("c"));
        QCOMPARE(packet.getRootNodeForCommandTree().name, text("x"));
        QCOMPARE(packet.getRootNodeForPersistentConfigTree().name, text("p"));
    }

    void treesOfAnyForm_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QByteArray>("tree");
        const auto row = [](const char* name, const QByteArray& json, const QByteArray& tree) {
            QTest::newRow(name) << json << tree;
        };
        const auto nested = [](int levels) -> QByteArray {
            return QByteArray("{'Core':'','Kids':[").repeated(levels) + QByteArray("]}").repeated(levels);
        };
        row("no children", "{'Core':'a'}", "a()");
        row("no name", "{'Kids':[{'Core':'a','Kids':[]}]}", "(a())");
        row("wrong types", "{'Core':1,'Kids':{'Core':'a'}}", "()");
        row("children that are none", "{'Core':'a','Kids':['b',null,{'Core':'c'}]}", "a(()()c())");
        row("no object", "'a'", "()");
        row("as deep as allowed", nested(RadixTreeReader::kDepthLimit),
            QByteArray(RadixTreeReader::kDepthLimit, '(') + QByteArray(RadixTreeReader::kDepthLimit, ')'));
        row("too deep", nested(RadixTreeReader::kDepthLimit + 1), "refused");
        row("far too deep", nested(400), "refused");
        row("too many",
            "{'Core':'a','Kids':[" + QByteArray("{},").repeated(RadixTreeReader::kNodeLimit) + "{}]}",
            "refused");
        row("too long",
            "{'Core':'" + QByteArray(1024 * 1024, 'x') + "','Kids':[" + QByteArray("{},").repeated(32)
                + "{}]}",
            "refused");
    }
    void treesOfAnyForm()
    {
        QFETCH(QByteArray, json);
        QFETCH(QByteArray, tree);
        const bool refused = tree == "refused";
        if (refused)
            log().expectError(text("DatacorePathRadixTreePacket: tree refused"));
        const QByteArray expected = refused ? QByteArray("()") : tree;
        const auto packet = as<DatacorePathRadixTreePacket>(
            received("{'Class':'DatacorePathRadixTreePacket','ConfigTreeObject':" + json + "}"));
        QCOMPARE(shape(packet.getRootNodeForConfigTree()), expected);
        QCOMPARE(log().lines().size(), refused ? 1 : 0);
        QCOMPARE(shape(packet.getRadixTreeFromJson(jsonObject(json))), expected);
    }
};

WZ_TEST_CLASS(tst_DatacorePackets)
#include "tst_DatacorePackets.moc"
