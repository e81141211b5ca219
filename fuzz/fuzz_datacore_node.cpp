// Whatever JSON a node is given, reading it from its bytes and from a QJsonObject does the same; a fault
// changes nothing, and what was taken over reads back as it is written.

#include "Check.h"
#include "datacore/DatacoreBase.h"
#include "network/JsonObjectReader.h"
#include "network/JsonObjectWriter.h"

#include <QJsonDocument>

#include <cstdint>

namespace {

/// A node with a child, in a state that a fault must not change.
struct Nodes {
    Nodes()
        : root(QStringLiteral("C"), QStringLiteral("n"), nullptr, QStringLiteral("1"))
        , child(QString(), QStringLiteral("c"), &root, std::deque<QString>{QStringLiteral("1"), QString()})
    {
        child.setValid({DatacoreValidStatusMessage(21)});
    }

    QJsonObject state() const
    {
        QJsonObject json;
        std::list<DatacoreJsonMessage> unused;
        FUZZ_CHECK(root.appendDataToJson(QString(), json, false, true, unused));
        return json;
    }

    DatacoreBase root;
    DatacoreBase child;
    std::list<DatacoreJsonMessage> messages;
};

bool isSame(const std::list<DatacoreJsonMessage>& a, const std::list<DatacoreJsonMessage>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

QJsonObject asWritten(const DatacoreBase& node)
{
    JsonObjectWriter writer;
    node.writeOwnData(writer, false);
    return QJsonDocument::fromJson(writer.take()).object();
}

} // namespace

/// Qt 5.15 loses the first of two values of the same key when it is an object or an array.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto text = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QJsonObject json = QJsonDocument::fromJson(text).object();
    const bool skipStatus = size % 2;

    Nodes fromObject;
    const QJsonObject before = fromObject.state();
    const bool done = fromObject.root.populateDataFromJson(QString(), json, skipStatus, fromObject.messages);
    FUZZ_CHECK(done == fromObject.messages.empty());
    FUZZ_CHECK(done || fromObject.state() == before);

    const JsonObjectReader reader(text.constData(), text.size());
    if (reader.verdict() == JsonObjectReader::Verdict::Object) {
        Nodes fromBytes;
        const bool same = fromBytes.root.populateDataFromView(reader.root(), skipStatus, fromBytes.messages);
        FUZZ_CHECK(same == done);
        FUZZ_CHECK(isSame(fromBytes.messages, fromObject.messages));
        FUZZ_CHECK(fromBytes.state() == fromObject.state());
    }

    Nodes again;
    FUZZ_CHECK(again.root.populateDataFromJson(QString(), fromObject.state(), false, again.messages));
    FUZZ_CHECK(again.state() == fromObject.state());
    QJsonObject own;
    FUZZ_CHECK(fromObject.root.appendDataToJson(QString(), own, false, false, again.messages));
    FUZZ_CHECK(asWritten(fromObject.root) == own);
    return 0;
}
