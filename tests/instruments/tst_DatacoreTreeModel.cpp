#include "instruments/datacorebrowser/DatacoreTreeModel.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreMonitor.h"
#include "datacore/DatacorePacket.h"
#include "datacore/WzClientDatacoreManager.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"

#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

using Confirmation = DatacoreTreeModel::Confirmation;
using Worst = DatacoreTreeModel::Worst;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

const QStringList kPaths{
    text("configCoreRouter"),           text("configCoreRouter/a"),    text("configCoreRouter/a/list"),
    text("configCoreRouter/a/name"),    text("statusCoreRouter"),      text("statusCoreRouter/level"),
    text("commandCoreRouter"),          text("commandCoreRouter/go"),  text("commandCoreRouter/x-y"),
    text("commandCoreRouter/x"),        text("commandCoreRouter/x/z"), text("nonPersistentConfigCoreRouter"),
    text("persistentConfigCoreRouter"),
};

/// A mirror without a server, and a model of it that somebody looks at.
class Fixture {
public:
    Fixture()
        : connection(nullptr, false)
        , monitor(connection)
        , manager(connection, distributor)
        , model(registry())
        , tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        model.setWatching(true);
    }
    ClientDatacoreRegistry& registry() { return manager.getClientDatacoreRegistry(); }
    void populate() { registry().populateRegistry(kPaths, monitor); }
    /// A value of the server; an echo when @p packetId is given.
    void receive(const char* path, const QByteArray& data, const QByteArray& status = {}, int packetId = -1)
    {
        const QByteArray name = QByteArray(path).mid(QByteArray(path).lastIndexOf('/') + 1);
        QByteArray json = "{'Class':'DatacorePacket','Datacore':{'" + name + "':{'class':'C','data':" + data
            + status + "}},'Path':'" + path + "'";
        if (packetId >= 0)
            json += ",'ClientID':'me','PacketID':" + QByteArray::number(packetId);
        json += '}';
        const auto packet = SerialisableDataPacket::fromCompactJson(json.replace('\'', '"'));
        if (packetId < 0) {
            distributor.acceptPacket(packet);
            return;
        }
        auto echo = DatacorePacket::fromPacket(packet);
        registry().lookupDatacoreFromPath(text(path))->populateDataFromDatacorePacket(*echo, true);
    }
    QModelIndex at(const char* path, int column = DatacoreTreeModel::Name)
    {
        const QModelIndex row = model.indexOfPath(text(path));
        return row.sibling(row.row(), column);
    }
    QString value(const char* path) { return at(path, DatacoreTreeModel::Value).data().toString(); }
    Qt::ItemFlags valueFlags(const char* path) { return model.flags(at(path, DatacoreTreeModel::Value)); }
    DatacoreTreeModel::Look look(const char* path) { return model.lookOf(at(path)); }

    NetworkConnection connection;
    ClientDatacoreMonitor monitor;
    SerialisableDataPacketDistributor distributor;
    WzClientDatacoreManager manager;
    DatacoreTreeModel model;
    QAbstractItemModelTester tester;
};

constexpr char kError[] =
    ",'reasonsForBeingInvalid':[{'DatacoreValidStatusMessage':{},'MessageBase':{'identifier':2,'type':2}}]";

} // namespace

class tst_DatacoreTreeModel : public WzTest {
    Q_OBJECT

private slots:
    void treesInTheirOrder()
    {
        Fixture f;
        f.populate();
        QStringList roots;
        for (int row = 0; row < f.model.rowCount(); ++row)
            roots << f.model.index(row, 0).data().toString();
        QCOMPARE(roots,
                 (QStringList{text("configCoreRouter"), text("statusCoreRouter"),
                              text("nonPersistentConfigCoreRouter"), text("commandCoreRouter"),
                              text("persistentConfigCoreRouter")}));
        QCOMPARE(f.model.nodeCount(), kPaths.size());
        // "x-y" stands between "x" and "x/z" among the paths.
        QCOMPARE(f.at("commandCoreRouter/x/z").parent(), f.at("commandCoreRouter/x"));
    }

    void namesOfTheirOwnKind()
    {
        Fixture f;
        const QString deep = text("r/") + text("d/").repeated(5000) + text("end");
        QStringList chain{text("c")};
        while (chain.size() < 300)
            chain << chain.last() + text("/c");
        f.registry().populateRegistry(QStringList{text("r"), deep, text("/"), text("a//b")} + chain,
                                      f.monitor);
        QCOMPARE(f.model.nodeCount(), 304);
        QCOMPARE(f.model.indexOfPath(deep).parent(), f.at("r"));
        QVERIFY(f.model.indexOfPath(chain.last()).isValid());
    }

    void onlyRowsInSightAreTold()
    {
        Fixture f;
        f.populate();
        f.receive("statusCoreRouter/level", "'1'");
        f.receive("configCoreRouter/a/name", "'n'");
        const QModelIndex level = f.at("statusCoreRouter/level");
        f.model.showChanges({level});
        QSignalSpy waiting(&f.model, &DatacoreTreeModel::changesWaiting);
        QSignalSpy changed(&f.model, &QAbstractItemModel::dataChanged);
        for (int i = 0; i < 50; ++i) {
            f.receive("statusCoreRouter/level", "'" + QByteArray::number(i) + "'");
            f.receive("configCoreRouter/a/name", "'" + QByteArray::number(i) + "'");
        }
        QCOMPARE(waiting.size(), 1);
        QVERIFY(changed.isEmpty());
        QVERIFY(!f.model.showChanges({level}));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toModelIndex(),
                 f.at("statusCoreRouter/level", DatacoreTreeModel::Value));
        QCOMPARE(f.value("configCoreRouter/a/name"), text("49"));
        f.receive("statusCoreRouter/level", "'50'", kError);
        changed.clear();
        f.model.showChanges({level});
        QCOMPARE(changed.size(), int{DatacoreTreeModel::ColumnCount});
        QVERIFY(f.look("statusCoreRouter/level").worst == Worst::Error);
    }

    void nothingWhileNobodyLooks()
    {
        Fixture f;
        f.populate();
        f.model.setWatching(false);
        QSignalSpy waiting(&f.model, &DatacoreTreeModel::changesWaiting);
        f.receive("statusCoreRouter/level", "'1'");
        QVERIFY(waiting.isEmpty());
        f.registry().clearRegistry();
        QCOMPARE(f.model.rowCount(), 0);
        f.populate();
        QCOMPARE(f.model.rowCount(), 0);
        f.model.setWatching(true);
        QCOMPARE(f.model.rowCount(), 5);
        f.receive("statusCoreRouter/level", "'2'");
        QCOMPARE(waiting.size(), 1);
    }

    void heldOutlivesTheNodes()
    {
        Fixture f;
        f.populate();
        f.receive("configCoreRouter/a/name", "'before'");
        f.model.setHeld(true);
        f.receive("configCoreRouter/a/name", "'after'");
        f.registry().clearRegistry();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(f.value("configCoreRouter/a/name"), text("before"));
        QVERIFY(!f.look("configCoreRouter/a/name").isWritable);
        f.model.setFilter(text("before"));
        QCOMPARE(f.model.matchCount(), 1);
        f.populate();
        f.model.setHeld(false);
        f.model.setFilter({});
        QVERIFY(f.look("configCoreRouter/a/name").worst == Worst::NoValue);
    }

    void filters_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("matches");
        QTest::addColumn<int>("roots");
        QTest::newRow("all") << QString() << 13 << 5;
        QTest::newRow("blanks") << text("  ") << 13 << 5;
        QTest::newRow("name, any case") << text("NAME") << 1 << 1;
        QTest::newRow("what is below comes too") << text("corerouter/a") << 3 << 1;
        QTest::newRow("value") << text("10.0.0.7") << 1 << 1;
        QTest::newRow("both words") << text("a/ 10.0") << 1 << 1;
        QTest::newRow("one word only") << text("level 10.0") << 0 << 0;
    }
    void filters()
    {
        QFETCH(QString, words);
        Fixture f;
        f.populate();
        f.receive("configCoreRouter/a/list", "['x','10.0.0.7']");
        f.model.setFilter(words);
        QTEST(f.model.matchCount(), "matches");
        QTEST(f.model.rowCount(), "roots");
        QCOMPARE(f.at("statusCoreRouter/level").isValid(), words.trimmed().isEmpty());
    }

    void writable_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<bool>("isEditable");
        const QByteArray none;
        QTest::newRow("configuration") << QByteArray("configCoreRouter/a/name") << none << true;
        QTest::newRow("command") << QByteArray("commandCoreRouter/go") << none << true;
        QTest::newRow("status") << QByteArray("statusCoreRouter/level") << none << false;
        QTest::newRow("inner") << QByteArray("configCoreRouter/a") << none << false;
        QTest::newRow("root") << QByteArray("persistentConfigCoreRouter") << none << false;
        QTest::newRow("inactive") << QByteArray("configCoreRouter/a/name")
                                  << QByteArray(
                                         ",'reasonsForBeingInactive':[{'DatacoreActiveStatusMessage':{},"
                                         "'MessageBase':{'identifier':3,'type':2}}]")
                                  << false;
    }
    void writable()
    {
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, status);
        const char* const node = path.constData();
        Fixture f;
        f.populate();
        QVERIFY(!f.valueFlags(node).testFlag(Qt::ItemIsEditable));
        f.receive(node, "'v'", status);
        QTEST(f.valueFlags(node).testFlag(Qt::ItemIsEditable), "isEditable");
        QVERIFY(!f.model.flags(f.at(node)).testFlag(Qt::ItemIsEditable));
    }

    void writeWaitsForItsEcho()
    {
        Fixture f;
        f.populate();
        const char* const path = "configCoreRouter/a/name";
        f.receive(path, "'old'");
        const QModelIndex value = f.at(path, DatacoreTreeModel::Value);
        QVERIFY(f.model.setData(value, text("new")));
        QCOMPARE(f.value(path), text("new"));
        QVERIFY(f.model.showChanges({value}));
        QVERIFY(f.look(path).confirmation == Confirmation::Awaited);
        // The instrument refuses: the echo has its own value.
        f.receive(path, "'old'", {}, 0);
        QVERIFY(!f.model.showChanges({value}));
        QVERIFY(f.look(path).confirmation == Confirmation::Confirmed);
        QCOMPARE(f.value(path), text("old"));
        QVERIFY(f.model.setData(value, text("new")));
        f.registry().clearRegistry();
        QVERIFY(!f.model.showChanges({}));
    }

    void listsAreWrittenAsJson()
    {
        Fixture f;
        f.populate();
        const char* const path = "configCoreRouter/a/list";
        f.receive(path, "['a, b','c']");
        const QModelIndex value = f.at(path, DatacoreTreeModel::Value);
        QCOMPARE(value.data(Qt::EditRole).toString(), text("[\"a, b\",\"c\"]"));
        for (const char* const refused : {"a, b", "[1,2]", "[]", "{}", "[\"a\""})
            QVERIFY2(!f.model.setData(value, text(refused)), refused);
        QVERIFY(f.model.setData(value, text("[\"d\",\"e\",\"f\"]")));
        QCOMPARE(f.registry().lookupDatacoreFromPath(text(path))->getDataList(),
                 (QStringList{text("d"), text("e"), text("f")}));
    }

    void toolTipIsNoRichText()
    {
        Fixture f;
        f.populate();
        f.receive("statusCoreRouter/level", "'<b>1</b>'", kError);
        const QString tip = f.at("statusCoreRouter/level").data(Qt::ToolTipRole).toString();
        QVERIFY2(tip.contains(text("&lt;b&gt;1")) && tip.contains(text("<br>Error: ")), qPrintable(tip));
    }
};

WZ_TEST_CLASS(tst_DatacoreTreeModel)
#include "tst_DatacoreTreeModel.moc"
