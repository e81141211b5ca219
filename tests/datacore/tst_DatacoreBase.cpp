#include "datacore/DatacoreBase.h"

#include "network/JsonObjectReader.h"
#include "network/JsonObjectWriter.h"

#include "JsonText.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <memory>

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// A node with a rule: its data must not be "bad".
class Checked : public DatacoreBase {
public:
    using DatacoreBase::DatacoreBase;
    void regenerateInvalidationStatusMessages(std::list<DatacoreValidStatusMessage>& messages) const override
    {
        messages.clear();
        if (getData() == text("bad"))
            messages.emplace_back(DatacoreValidStatusMessage::ValueNotSupported);
    }
    void processData() override { ++processed; }
    int processed = 0;
};

class Root : public DatacoreBase {
public:
    using DatacoreBase::DatacoreBase;
    void changedPrivateSignal() override { ++changes; }
    int changes = 0;
};

QByteArray contents(std::list<DatacoreJsonMessage> messages)
{
    QByteArray numbers;
    for (const auto& message : messages)
        numbers += QByteArray::number(message.getIdentifier()) + ' ';
    return numbers.trimmed();
}

} // namespace

class tst_DatacoreBase : public WzTest {
    Q_OBJECT

private slots:
    void splitsPaths_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("head");
        QTest::addColumn<QString>("rest");
        QTest::newRow("empty") << "" << true << ""
                               << "";
        QTest::newRow("one name") << "a" << true << "a"
                                  << "";
        QTest::newRow("two names") << "a/b" << true << "a"
                                   << "b";
        QTest::newRow("three names") << "a/b/c" << true << "a"
                                     << "b/c";
        QTest::newRow("trailing") << "a/" << true << "a"
                                  << "";
        QTest::newRow("doubled") << "a//b" << true << "a"
                                 << "/b";
        QTest::newRow("leading") << "/a" << false << ""
                                 << "";
        QTest::newRow("delimiter alone") << "/" << false << ""
                                         << "";
    }
    void splitsPaths()
    {
        QFETCH(QString, path);
        QString head;
        QString rest;
        QTEST(DatacoreBase(text("x"), nullptr).splitPathAroundFirstDelimiter(path, head, rest), "ok");
        QTEST(head, "head");
        QTEST(rest, "rest");
    }

    void writesPaths_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("children");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* name, const char* path, bool children, const char* expected) {
            QTest::newRow(name) << text(path) << children << QByteArray(expected);
        };
        row("root", "", false, "{'r':{'class':'R','data':null}}");
        row("below", "b", false, "{'b':{'class':'B','data':['1','']}}");
        row("deep, the rest empty", "b/a/", false, "{'a':{'class':'','data':'7'}}");
        row("children in order", "", true,
            "{'r':{'b':{'a':{'class':'','data':'7'},'class':'B','data':['1','']},'class':'R','data':null}}");
        row("unknown", "c", false, "{}");
        row("unknown below", "b/c", false, "{}");
        row("leading delimiter", "/b", false, "{}");
        row("an element is no node", "b/data", false, "{}");
    }
    void writesPaths()
    {
        QFETCH(QString, path);
        QFETCH(bool, children);
        QFETCH(QByteArray, expected);
        DatacoreBase root(text("R"), text("r"), nullptr);
        DatacoreBase b(text("B"), text("b"), &root, std::deque<QString>{text("1"), QString()});
        DatacoreBase a(text("a"), &b, text("7"));
        QCOMPARE(a.getPath(), text("r/b/a"));
        QJsonObject json;
        std::list<DatacoreJsonMessage> messages;
        QCOMPARE(root.appendDataToJson(path, json, true, children, messages), expected != "{}");
        QCOMPARE(jsonText(json), expected);
    }

    void writesStatusToo()
    {
        DatacoreBase node(text("\xe4\""), nullptr, text("1"));
        node.setValid(
            {DatacoreValidStatusMessage(6), DatacoreValidStatusMessage(4, MessageBase::MessageType(1))});
        QJsonObject json;
        std::list<DatacoreJsonMessage> messages;
        QVERIFY(node.appendDataToJson(QString(), json, false, false, messages));
        QCOMPARE(jsonText(json.begin().value().toObject()),
                 QByteArray("{'class':'','data':'1','reasonsForBeingInactive':[],'reasonsForBeingInvalid':["
                            "{'DatacoreValidStatusMessage':{},'MessageBase':{'identifier':6,'type':2}},"
                            "{'DatacoreValidStatusMessage':{},'MessageBase':{'identifier':4,'type':1}}]}"));
        for (const bool skipStatus : {false, true}) {
            JsonObjectWriter writer;
            node.writeOwnData(writer, skipStatus);
            QJsonObject same;
            node.appendDataToJson(QString(), same, skipStatus, false, messages);
            QCOMPARE(writer.take(), QJsonDocument(same).toJson(QJsonDocument::Compact));
        }
    }

    void elementsRefuseAPath()
    {
        std::list<DatacoreJsonMessage> messages;
        DatacoreDataElement element(nullptr);
        QJsonObject json;
        QVERIFY(!element.appendDataToJson(text("a"), json, false, false, messages));
        QVERIFY(!element.populateDataFromJson(text("a"), jsonObject("{'data':'1'}"), false, messages));
        QVERIFY(!element.populateDataFromJson(QString(), json, false, messages));
        QCOMPARE(contents(messages), QByteArray("5 5 6"));
        QCOMPARE(int(messages.front().getType()), 2);
        QVERIFY(json.isEmpty());
    }

    /// Each text is read in both ways: as a QJsonObject and straight from its bytes.
    void readsJson_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QByteArray>("faults");
        QTest::addColumn<QStringList>("data");
        const QStringList before{text("old")};
        const auto row = [](const char* name, const char* json, const char* faults, const QStringList& data) {
            QTest::newRow(name) << QByteArray(json) << QByteArray(faults) << data;
        };
        row("null", "{'n':{'class':'C','data':null}}", "", {});
        row("string", "{'n':{'class':'C','data':'\u00e4'}}", "", {QString(QChar(0xe4))});
        row("same string", "{'n':{'class':'C','data':'old'}}", "", before);
        row("array", "{'n':{'class':'C','data':['old','2']}}", "", {text("old"), text("2")});
        row("array of one", "{'n':{'class':'C','data':['old']}}", "", before);
        row("array of none", "{'n':{'class':'C','data':[]}}", "", {});
        row("the last of two keys", "{'n':{'class':'C','data':'1','data':'2'}}", "", {text("2")});
        row("unknown keys", "{'m':{},'n':{'x':1,'class':'C','data':'1'}}", "", {text("1")});
        row("number", "{'n':{'class':'C','data':1}}", "6", before);
        row("number in the array", "{'n':{'class':'C','data':['1',2]}}", "6", before);
        row("array in the array", "{'n':{'class':'C','data':['1',[]]}}", "6", before);
        row("object", "{'n':{'class':'C','data':{}}}", "6", before);
        row("no data", "{'n':{'class':'C'}}", "6", before);
        row("foreign class", "{'n':{'class':'D','data':'1'}}", "2", before);
        row("class of another case", "{'n':{'class':'c','data':'1'}}", "2", before);
        row("class is no string", "{'n':{'class':1,'data':'1'}}", "6", before);
        row("no class", "{'n':{'data':'1'}}", "6", before);
        row("other name", "{'m':{'class':'C','data':'1'}}", "3", before);
        row("not wrapped", "{'class':'C','data':'1'}", "3", before);
        row("no object", "{'n':'1'}", "3", before);
        row("fault behind the data", "{'n':{'class':'C','data':'1','reasonsForBeingInvalid':{}}}", "6",
            before);
        row("floating-point number beside", "{'n':{'x':0.5,'class':'C','data':'1'}}", "", {text("1")});
    }
    void readsJson()
    {
        QFETCH(QByteArray, json);
        QFETCH(QByteArray, faults);
        QFETCH(QStringList, data);
        json.replace('\'', '"');
        for (const bool fromBytes : {false, true}) {
            DatacoreBase node(text("C"), text("n"), nullptr, text("old"));
            node.resetChangedStatus();
            std::list<DatacoreJsonMessage> messages;
            const JsonObjectReader reader(json.constData(), json.size());
            if (fromBytes && reader.verdict() == JsonObjectReader::Verdict::AskQt)
                continue;
            const bool done = fromBytes
                ? node.populateDataFromView(reader.root(), false, messages)
                : node.populateDataFromJson(QString(), jsonObject(json), false, messages);
            QCOMPARE(contents(messages), faults);
            QCOMPARE(done, faults.isEmpty());
            QCOMPARE(node.getDataList(), data);
            QCOMPARE(node.getClassName(), text("C"));
            QCOMPARE(node.getChangedStatus(), done ? 1 : 0);
        }
    }

    void readsReasons()
    {
        const QByteArray reason =
            "{'DatacoreValidStatusMessage':{},'MessageBase':{'identifier':10,'type':1}}";
        const auto json = jsonObject("{'n':{'class':'','data':null,'reasonsForBeingInvalid':[" + reason
                                     + ",5,{'MessageBase':{'identifier':10,'type':1}}],"
                                       "'reasonsForBeingInactive':[]}}");
        DatacoreBase node(text("n"), nullptr);
        node.setActive({DatacoreActiveStatusMessage(3)});
        std::list<DatacoreJsonMessage> messages;
        QVERIFY(node.populateDataFromJson(QString(), json, true, messages));
        QVERIFY(node.isValid() && !node.isActive());
        QVERIFY(node.populateDataFromJson(QString(), json, false, messages));
        QVERIFY(node.isActive());
        std::list<DatacoreValidStatusMessage> reasons;
        QVERIFY(!node.isValid(reasons));
        const std::list<DatacoreValidStatusMessage> expected{
            DatacoreValidStatusMessage(10, MessageBase::MessageType::Warning),
            DatacoreValidStatusMessage(0, MessageBase::MessageType(3)),
            DatacoreValidStatusMessage(0, MessageBase::MessageType(3))};
        QVERIFY(std::equal(reasons.begin(), reasons.end(), expected.begin(), expected.end()));
    }

    void refusesEndlessLists()
    {
        log().expectError(QStringLiteral("more than"));
        DatacoreBase node(text("n"), nullptr, text("old"));
        std::list<DatacoreJsonMessage> messages;
        const auto list = [](const QByteArray& item, int count) -> QByteArray {
            return item + QByteArray(',' + item).repeated(count - 1);
        };
        QVERIFY(
            !node.populateDataFromJson(QString(),
                                       jsonObject("{'n':{'class':'','data':["
                                                  + list("'x'", DatacoreDataElement::kItemLimit + 1) + "]}}"),
                                       false, messages));
        QVERIFY(!node.populateDataFromJson(
            QString(),
            jsonObject("{'n':{'class':'','data':'1','reasonsForBeingInvalid':["
                       + list("{}", DatacoreValidStatusElement::kReasonLimit + 1) + "]}}"),
            false, messages));
        QCOMPARE(node.getData(), text("old"));
        QCOMPARE(log().lines().size(), 2);
    }

    void anEmptyItemIsTakenOverAndReported()
    {
        DatacoreBase node(text("n"), nullptr, text("old"));
        std::list<DatacoreJsonMessage> messages;
        QVERIFY(node.populateDataFromJson(QString(), jsonObject("{'n':{'class':'','data':['','x']}}"), false,
                                          messages));
        QCOMPARE(node.getDataList(), (QStringList{QString(), text("x")}));
        QCOMPARE(log().lines(), QStringList{text("W 0 sized entry for data element")});
    }

    void readsChildrenOrNothing()
    {
        Root root(text("r"), nullptr, text("0"));
        DatacoreBase a(text("a"), &root, text("0"));
        DatacoreBase b(text("b"), &root, text("0"));
        std::list<DatacoreJsonMessage> messages;
        const auto read = [&](const char* path, const char* json) {
            return root.populateDataFromJson(text(path), jsonObject(json), false, messages);
        };
        QVERIFY(!read("", "{'r':{'class':'','data':'1','a':{'class':'','data':'1'},'b':{'class':''}}}"));
        QCOMPARE(root.getData() + a.getData() + b.getData(), text("000"));
        QCOMPARE(root.changes, 0);
        QVERIFY(read("", "{'r':{'class':'','data':'1','a':{'class':'','data':'1'}}}"));
        QCOMPARE(root.getData() + a.getData() + b.getData(), text("110"));
        QVERIFY(read("b/", "{'b':{'class':'','data':'2'}}"));
        QCOMPARE(b.getData(), text("2"));
        messages.clear();
        QVERIFY(!read("/b", "{'b':{'class':'','data':'3'}}"));
        QVERIFY(!read("c", "{'c':{'class':'','data':'3'}}"));
        QCOMPARE(contents(messages), QByteArray("1 0"));
    }

    void changeNotification()
    {
        Root root(text("r"), nullptr);
        DatacoreBase a(text("a"), &root);
        auto b = std::make_unique<DatacoreBase>(text("b"), &a);
        QCOMPARE(b->getChangedStatus(), 2);
        b->notifyElementChangedFromJson();
        QCOMPARE(b->getChangedStatus(), 2);
        root.resetAllChangedStatus();
        b->notifyElementChangedFromJson();
        QCOMPARE(b->getChangedStatus(), 1);
        b->setData(text("1"));
        QCOMPARE(b->getChangedStatus(), 2);
        a.setData(text("1"));
        QCOMPARE(root.changes, 4);

        std::list<DatacoreBase*> collected = root.emptyCollectedChangedCores();
        QCOMPARE(collected, (std::list<DatacoreBase*>{b.get(), &a}));
        QVERIFY(root.emptyCollectedChangedCores().empty());
        DatacoreBase::removeDuplicates(collected, {&root, b.get()});
        QCOMPARE(collected, std::list<DatacoreBase*>{&a});

        // A node that goes is not handed over any more, nor is one of another tree.
        DatacoreBase stranger(text("s"), nullptr);
        std::list<DatacoreBase*> changed{&a, &stranger, b.get()};
        root.notifyChanged(changed);
        b.reset();
        QCOMPARE(root.emptyCollectedChangedCores(), std::list<DatacoreBase*>{&a});
        QVERIFY(a.getChildren().empty());
    }

    void parentsGoBeforeChildren()
    {
        Root root(text("r"), nullptr);
        auto middle = std::make_unique<DatacoreBase>(text("m"), &root);
        DatacoreBase leaf(text("l"), middle.get());
        leaf.setData(text("1"));
        middle.reset();
        QCOMPARE(leaf.getPath(), text("l"));
        QVERIFY(root.emptyCollectedChangedCores().empty());
        leaf.setData(text("2"));
        QCOMPARE(leaf.emptyCollectedChangedCores(), std::list<DatacoreBase*>{&leaf});
    }

    void refusesNamesThatAreTaken()
    {
        log().expectError(text("'r' cannot have a child of the name"));
        DatacoreBase root(text("r"), nullptr);
        DatacoreBase first(text("a"), &root);
        {
            DatacoreBase second(text("a"), &root);
            DatacoreBase element(text("data"), &root);
        }
        QCOMPARE(root.getChildren().size(), size_t(1));
        QCOMPARE(root.findDescendant(text("a")), &first);
        QCOMPARE(log().lines().size(), 2);
    }

    void validityWalks()
    {
        Checked root(text("r"), nullptr, text("bad"));
        DatacoreBase plain(text("p"), &root);
        Checked leaf(text("l"), &plain, text("good"));
        plain.setValid({DatacoreValidStatusMessage(40)});
        leaf.setValid({DatacoreValidStatusMessage(40)});
        QVERIFY(root.isValid() && !root.areChildrenValid());

        root.applyDefaultStateToSystem();
        QVERIFY(!root.isValid());
        QVERIFY2(!plain.isValid(), "a node without rules keeps its reasons");
        QVERIFY(leaf.isValid());
        QCOMPARE(root.processed, 0);
        QCOMPARE(leaf.processed, 1);
        QCOMPARE(root.getChangedStatus() + plain.getChangedStatus() + leaf.getChangedStatus(), 0);
        plain.setValid({});
        QVERIFY(root.areChildrenValid());
    }
};

WZ_TEST_CLASS(tst_DatacoreBase)
#include "tst_DatacoreBase.moc"
