#include "network/JsonObjectReader.h"
#include "network/JsonObjectWriter.h"
#include "network/MessageBase.h"
#include "network/SerialisableDataPacket.h"

#include "support/Frames.h"
#include "support/TestRunner.h"
#include "support/WzTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

namespace {

/// Gives the tests a way to the object that subclasses have.
class OpenPacket : public SerialisableDataPacket {
public:
    OpenPacket()
        : SerialisableDataPacket(QStringLiteral("OpenPacket"))
    {
    }
    explicit OpenPacket(const SerialisableDataPacket& packet)
        : SerialisableDataPacket(packet)
    {
    }
    using SerialisableDataPacket::object;
    using SerialisableDataPacket::setValue;
};

SerialisableDataPacket received(const QByteArray& text)
{
    const QByteArray frame = Frames::json(text);
    return SerialisableDataPacket(frame, RawDataPacket::peekHeader(frame));
}

/// Whether every value found in the view is the one that Qt has read.
bool isSame(const JsonView& view, const QJsonValue& value)
{
    if (const auto number = view.integer())
        return value.isDouble() && *number == value.toVariant().toLongLong();
    if (view.isArray() != value.isArray() || view.isObject() != value.isObject())
        return false;
    const QJsonArray items = value.toArray();
    int count = 0;
    if (!view.forEachItem([&](const JsonView& item) { return isSame(item, items.at(count++)); }))
        return false;
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (!isSame(view.memberNamed(member.key()), *member))
            return false;
    }
    return count == items.size()
        && view.string() == (value.isString() ? std::optional(value.toString()) : std::nullopt);
}

class ProbeMessage : public MessageBase {
public:
    using MessageBase::MessageBase;
    static std::unique_ptr<MessageBase> build(const QJsonObject& object)
    {
        auto message = std::make_unique<ProbeMessage>(object);
        return message->getType() == MessageType(7) ? nullptr : std::move(message);
    }
    QString getClass() const override { return QStringLiteral("ProbeMessage"); }
    QString getText() const override { return getIdentifier() > 0 ? QStringLiteral("text") : QString(); }
};

} // namespace

class tst_SerialisableDataPacket : public WzTest {
    Q_OBJECT

private slots:
    void wireForm()
    {
        QCOMPARE(Frames::of(SerialisableDataPacket()),
                 QByteArray::fromHex("cafeba6e1f00d321"
                                     "1010"
                                     "0000"
                                     "00000006"
                                     "000000027b7d"
                                     "deadbeef"));
        const SerialisableDataPacket packet(QStringLiteral("ä"));
        QCOMPARE(packet.getSerialisedPayloadForTransmit(),
                 QByteArray("\0\0\0\x0e{\"Class\":\"\xc3\xa4\"}", 18));
        QByteArray target("before");
        QCOMPARE(packet.serialiseTo(target), 14);
        QCOMPARE(target, "before" + packet.serialise());
    }

    /// Whatever stands in the payload, the packet is what Qt makes of it.
    void readsAsQtDoes_data()
    {
        QTest::addColumn<QByteArray>("text");
        const auto row = [](const char* name, const QByteArray& text) { QTest::newRow(name) << text; };
        row("plain", R"({"Class":"A","n":1})");
        row("any order and spaces", "\r\n {\t\"z\" : [ ] , \"Class\" : \"A\" } ");
        row("escaped key and value", "{\"Cl\\u0061ss\":\"\\u00e4\\n\\/\\\"\",\"x\":0}");
        row("surrogate pair", R"({"Class":"\ud83d\ude00"})");
        row("half a pair", R"({"Class":"\ud83d","x":"\ude00"})");
        row("zero in a string", R"({"Class":"a\u0000b"})");
        row("byte order mark in a string", "{\"Class\":\"\xEF\xBB\xBFx\"}");
        row("escaped byte order mark", "{\"Class\":\"\\ufeffx\"}");
        row("byte order mark in a key",
            "{\"\xEF\xBB\xBF"
            "Class\":\"x\"}");
        row("byte order mark in front", "\xEF\xBB\xBF{\"Class\":\"x\"}");
        row("duplicate keys", R"({"Class":"first","Class":"last","a":1,"a":2})");
        QByteArray manyDuplicates = "{\"Class\":\"0\"";
        for (int i = 1; i < 40; ++i)
            manyDuplicates += ",\"Class\":\"" + QByteArray::number(i) + "\",\"\":\"x\"";
        row("many duplicate keys", manyDuplicates + "}");
        row("class is a number", R"({"Class":5})");
        row("class within", R"({"x":{"Class":"inner"}})");
        row("no class", R"({"a":true,"b":null})");
        row("large integers",
            R"({"Class":"n","a":9223372036854775807,"b":-9223372036854775808,"c":18446744073709551615})");
        row("numbers", R"({"Class":"n","a":-0,"b":1.0,"c":1e3,"d":0.1,"e":1e400})");
        row("underflow", R"({"Class":"n","a":1e-400})");
        row("number with a leading zero", R"({"Class":"n","a":01})");
        row("unknown escape", R"({"Class":"\x"})");
        row("control character", "{\"Class\":\"a\tb\"}");
        row("broken UTF-8", "{\"Class\":\"\xC3\"}");
        row("overlong UTF-8", "{\"Class\":\"\xC0\xAF\"}");
        row("trailing garbage", R"({"Class":"A"}x)");
        row("trailing zero", QByteArray("{\"Class\":\"A\"}\0", 14));
        row("trailing comma", R"({"Class":"A",})");
        row("unterminated", R"({"Class":"A")");
        row("array", R"([{"Class":"A"}])");
        row("scalar", R"("Class")");
        row("empty", "");
        row("deep", "{\"Class\":\"A\",\"x\":" + QByteArray(600, '[') + QByteArray(600, ']') + "}");
        row("too deep", QByteArray(3000, '[') + QByteArray(3000, ']'));
        row("duplicate keys within", "{\"Class\":\"A\",\"x\":[{\"y\":1,\"z\":0,\"\\u0079\":{\"y\":\"2\"}}]}");
        row("many duplicate keys within", "{\"Class\":\"A\",\"x\":" + manyDuplicates + "}}");
        row("large", "{\"Class\":\"A\",\"x\":\"" + QByteArray(2 * 1024 * 1024, 'x') + "\"}");
    }
    void readsAsQtDoes()
    {
        QFETCH(QByteArray, text);
        QJsonParseError error;
        const QJsonObject expected = QJsonDocument::fromJson(text, &error).object();
        const bool faulty = error.error != QJsonParseError::NoError;
        if (faulty)
            log().expectError(QLatin1String("SerialisablePacket failed to parse packet ")
                              + error.errorString());

        const OpenPacket packet(received(text));
        QCOMPARE(packet.getPacketClassName(), expected.value(QLatin1String("Class")).toString());
        QCOMPARE(packet.object(), expected);
        QCOMPARE(packet.serialise(), QJsonDocument(expected).toJson(QJsonDocument::Compact));
        QCOMPARE(log().lines().size(), faulty ? 1 : 0);

        const JsonObjectReader reader(text.constData(), text.size());
        if (reader.verdict() == JsonObjectReader::Verdict::Object) {
            QVERIFY(!faulty);
            QVERIFY(isSame(reader.root(), expected));
        }
    }

    void payloadOfLessThanALength()
    {
        log().expectError(QStringLiteral("SerialisablePacket failed to parse packet "));
        const QByteArray frame = Frames::raw(0x1010, "\1\2\3");
        const OpenPacket packet{SerialisableDataPacket(frame, RawDataPacket::peekHeader(frame))};
        QVERIFY(packet.object().isEmpty());
        QCOMPARE(log().lines().size(), 1);
    }

    void deserialisesBareText()
    {
        QJsonParseError error;
        QCOMPARE(SerialisableDataPacket::deserialise(R"({"Class":"A"})", error).getPacketClassName(),
                 QStringLiteral("A"));
        QCOMPARE(error.error, QJsonParseError::NoError);

        log().expectError(QStringLiteral("SerialisablePacket failed to parse packet: "));
        const auto packet = SerialisableDataPacket::deserialise("{", error);
        QVERIFY(error.error != QJsonParseError::NoError);
        QVERIFY(packet == SerialisableDataPacket());
        QCOMPARE(log().count(error.errorString()), 1);
    }

    void writerWritesAsQtDoes()
    {
        QString everyUnit;
        for (int unit = 0; unit < 0x10000; unit += unit < 0x900 ? 1 : 0x61)
            everyUnit += QChar(unit);
        const QString strange = everyUnit + QString::fromUcs4(U"\U0001F600\U0010FFFF") + QChar(0xD800);
        const QStringList list{QString(), strange};
        const QJsonObject object{{QStringLiteral("a"), strange},
                                 {QStringLiteral("b"), -9007199254740993LL},
                                 {QStringLiteral("c"), true},
                                 {QStringLiteral("d"), QJsonValue::Null},
                                 {QStringLiteral("e"), QJsonArray::fromStringList(list)},
                                 {QStringLiteral("f"), QJsonObject{{QStringLiteral("x"), 1}}}};
        const QByteArray text = JsonObjectWriter()
                                    .string("a", strange)
                                    .integer("b", -9007199254740993LL)
                                    .boolean("c", true)
                                    .null("d")
                                    .strings("e", list)
                                    .raw("f", "{\"x\":1}")
                                    .take();
        QCOMPARE(text, QJsonDocument(object).toJson(QJsonDocument::Compact));
        QCOMPARE(OpenPacket(SerialisableDataPacket::fromCompactJson(text)).object(),
                 QJsonDocument::fromJson(text).object());
        QCOMPARE(JsonObjectWriter().take(), QByteArray("{}"));
    }

    /// Qt's writer leaves it bare, and its reader takes it for no part of the text then.
    void keepsAByteOrderMarkInFrontOfAText()
    {
        const QString marked = QChar(QChar::ByteOrderMark) + QStringLiteral("5004");
        const QByteArray text = JsonObjectWriter().string("a", marked).take();
        QCOMPARE(text, QByteArray("{\"a\":\"\\ufeff5004\"}"));
        QCOMPARE(QJsonDocument::fromJson(text).object().value(QStringLiteral("a")).toString(), marked);
    }

    void writesNestedMembers()
    {
        const QByteArray text = JsonObjectWriter()
                                    .beginArray("a")
                                    .beginItem()
                                    .endObject()
                                    .beginItem()
                                    .integer("z", 1)
                                    .endObject()
                                    .endArray()
                                    .beginObject("b")
                                    .beginObjectNamed(QStringLiteral("\u00e4\""))
                                    .null("a")
                                    .endObject()
                                    .endObject()
                                    .boolean("c", false)
                                    .take();
        QCOMPARE(text, QByteArray("{\"a\":[{},{\"z\":1}],\"b\":{\"\u00e4\\\"\":{\"a\":null}},\"c\":false}"));
    }

    void viewsNestedMembers()
    {
        const QByteArray text =
            "{\"o\":{\"\u00e4\":{\"m\":7,\"n\":8}},\"a\":[\"x\",null,[]],\"s\":\"\\u00e4b\"}";
        const JsonObjectReader reader(text.constData(), text.size());
        const JsonView root = reader.root();
        QCOMPARE(root.member("o").memberNamed(QStringLiteral("\u00e4")).member("n").integer().value_or(0),
                 8LL);
        QVERIFY(root.member("o").memberNamed(QStringLiteral("\u00e4x")).isAbsent());
        QVERIFY(root.member("s").isString(QStringLiteral("\u00e4b")));
        QVERIFY(!root.member("s").isString(QStringLiteral("\u00e4")));
        QVERIFY(!root.member("s").isString(QStringLiteral("\u00e4bc")));
        QVERIFY(!root.member("s").member("x").isObject());
        QStringList items;
        const auto collect = [&](const JsonView& item) {
            items << item.string().value_or(QString::number(int{item.isNull()} + 2 * int{item.isArray()}));
            return items.size() < 3;
        };
        QVERIFY(!root.member("a").forEachItem(collect));
        QCOMPARE(items, (QStringList{QStringLiteral("x"), QStringLiteral("1"), QStringLiteral("2")}));
        QVERIFY(root.member("o").forEachItem(collect));

        // Whatever was read before is absent once another text has been read.
        const JsonObjectReader other("{}", 2);
        QVERIFY(root.isAbsent() && root.member("o").isAbsent() && reader.root().isAbsent());
        QVERIFY(root.member("a").forEachItem(collect) && !root.member("s").string());
        QVERIFY(JsonObjectReader::documentRead(reader.documentNumber()).isAbsent());
        QVERIFY(JsonObjectReader::documentRead(other.documentNumber()).isObject());
        const JsonObjectReader faulty("{", 1);
        QVERIFY(faulty.root().isAbsent());
    }

    void changingAPacketDropsWhatWasReceived()
    {
        OpenPacket packet(received(R"({"Class":"A","x":1})"));
        packet.setValue(QStringLiteral("Class"), QStringLiteral("B"));
        QCOMPARE(packet.getPacketClassName(), QStringLiteral("B"));
        QCOMPARE(packet.serialise(), QByteArray(R"({"Class":"B","x":1})"));
    }

    void packetsWithinPackets()
    {
        SerialisableDataPacket outer(QStringLiteral("Outer"));
        outer.insertOtherPacketIntoThis(QStringLiteral("one"), received(R"({"Class":"A"})"));
        outer.insertOtherPacketsIntoThis(QStringLiteral("two"),
                                         {received(R"({"n":1})"), SerialisableDataPacket()});
        outer.insertOtherPacketIntoThis(QStringLiteral("empty"), SerialisableDataPacket());
        outer.insertOtherPacketsIntoThis(QStringLiteral("none"), {});

        bool ok = false;
        QVERIFY(outer.extractOtherPacketFromThis(QStringLiteral("one"), ok) == received(R"({"Class":"A"})"));
        QVERIFY(ok);
        const auto packets = outer.extractOtherPacketsFromThis(QStringLiteral("two"), ok);
        QVERIFY(ok);
        QCOMPARE(packets.size(), size_t(2));
        QVERIFY(packets[0] == received(R"({"n":1})"));

        for (const char* key : {"absent", "Class", "two", "empty"}) {
            QVERIFY(outer.extractOtherPacketFromThis(QLatin1String(key), ok) == SerialisableDataPacket());
            QVERIFY2(!ok, key);
        }
        for (const char* key : {"absent", "Class", "one", "none"}) {
            QVERIFY(outer.extractOtherPacketsFromThis(QLatin1String(key), ok).empty());
            QVERIFY2(!ok, key);
        }
        QVERIFY(
            received(R"({"x":[{"a":1},5]})").extractOtherPacketsFromThis(QStringLiteral("x"), ok).empty());
        QVERIFY(!ok);
    }

    void childTypesByClassName()
    {
        bool ok = false;
        const auto make = &SerialisableDataPacket::createChildTypePacketFromParentTypePacket<OpenPacket>;
        const OpenPacket child = make(received(R"({"Class":"OpenPacket","x":1})"), ok);
        QVERIFY(ok);
        QCOMPARE(child.object().value(QLatin1String("x")).toInt(), 1);
        QVERIFY(make(received(R"({"Class":"openPacket","x":1})"), ok) == OpenPacket());
        QVERIFY(!ok);
    }

    void messages()
    {
        MessageBase::registerBuilder(QStringLiteral("Probe"), &ProbeMessage::build);
        const ProbeMessage message(12, MessageBase::MessageType::Error);
        QCOMPARE(message.serialiseMessage(),
                 QJsonDocument::fromJson(R"({"MessageBase":{"type":2,"identifier":12}})").object());

        log().expectError(QStringLiteral("Not a serialised object, of QJson type: 3"));
        log().expectError(QStringLiteral("Not recognised as a serialised message: {\"x\":1}"));
        log().expectError(QStringLiteral("Unsupported message type: 7"));
        const auto array = QJsonDocument::fromJson(R"(["text", {"x":1},
            {"Probe":{}, "MessageBase":{"type":7,"identifier":1}},
            {"Probe":{}, "MessageBase":{"type":2,"identifier":12}}, {"Probe":{}}])")
                               .array();
        const auto built = MessageBase::buildMessages(array);
        QCOMPARE(built.size(), size_t(2));
        QVERIFY(*built[0] == message);
        QVERIFY(built[0]->hasContent());
        QVERIFY(!built[1]->hasContent());
        QCOMPARE(log().lines().size(), 3);
    }
};

WZ_TEST_CLASS(tst_SerialisableDataPacket)
#include "tst_SerialisableDataPacket.moc"
