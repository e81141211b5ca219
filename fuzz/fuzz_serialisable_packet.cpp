// Whatever stands in a serialisable packet, its class name, its object and what the fast reader yields are
// what Qt makes of the same bytes; and whatever values are written, the text is Qt's.

#include "Check.h"
#include "network/JsonObjectReader.h"
#include "network/JsonObjectWriter.h"
#include "network/SerialisableDataPacket.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

#include <cstdint>
#include <cstring>

namespace {

class OpenPacket : public SerialisableDataPacket {
public:
    using SerialisableDataPacket::object;
    using SerialisableDataPacket::SerialisableDataPacket;
};

/// Whether the key can be asked for as plain ASCII.
bool isPlain(const QString& key)
{
    for (const QChar unit : key) {
        if (unit.unicode() >= 0x80 || unit.isNull())
            return false;
    }
    return true;
}

void readsAsQtDoes(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonObject expected = QJsonDocument::fromJson(text, &error).object();

    RawDataPacket::Header header;
    header.packetIdentifier = RawDataPacket::PID_SERIALISABLE_DATA;
    header.payloadSize = static_cast<quint32>(text.size() + 4);
    const OpenPacket packet(QByteArray(RawDataPacket::kHeaderSize + 4, '\0') + text, header);
    FUZZ_CHECK(packet.getPacketClassName() == expected.value(QLatin1String("Class")).toString());
    FUZZ_CHECK(packet.object() == expected);
    FUZZ_CHECK(packet.serialise() == QJsonDocument(expected).toJson(QJsonDocument::Compact));

    const JsonObjectReader reader(text.constData(), text.size());
    if (reader.verdict() == JsonObjectReader::Verdict::AskQt)
        return;
    FUZZ_CHECK(error.error == QJsonParseError::NoError);
    for (auto member = expected.begin(); member != expected.end(); ++member) {
        if (!isPlain(member.key()))
            continue;
        const std::string key = member.key().toStdString();
        FUZZ_CHECK(reader.contains(key));
        FUZZ_CHECK(reader.string(key).has_value() == member->isString());
        FUZZ_CHECK(reader.string(key).value_or(QString()) == member->toString());
        if (const auto number = reader.integer(key))
            FUZZ_CHECK(*number == member->toVariant().toLongLong());
    }
}

void writesAsQtDoes(const uint8_t* data, size_t size)
{
    const QString text(reinterpret_cast<const QChar*>(data), static_cast<int>(size / 2));
    qint64 number = 0;
    std::memcpy(&number, data, std::min(size, sizeof number));
    const QStringList list{text, QString(), text.left(text.size() / 2)};
    const QByteArray written = JsonObjectWriter()
                                   .string("a", text)
                                   .integer("b", number)
                                   .strings("c", list)
                                   .boolean("d", size % 2)
                                   .take();
    const QJsonObject object{{QStringLiteral("a"), text},
                             {QStringLiteral("b"), number},
                             {QStringLiteral("c"), QJsonArray::fromStringList(list)},
                             {QStringLiteral("d"), size % 2 == 1}};
    // But for byte order marks, which Qt writes bare and then drops in front of a text.
    const QByteArray qtText = QJsonDocument(object).toJson(QJsonDocument::Compact);
    FUZZ_CHECK(written == QByteArray(qtText).replace("\xEF\xBB\xBF", "\\ufeff"));
}

} // namespace

/// Qt 5.15 loses the first of two values of the same key when it is an object or an array: 144 bytes each
/// time.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    readsAsQtDoes(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    // Aligned for the 16-bit units of a QString.
    std::vector<quint16> aligned(size / 2 + 1);
    std::memcpy(aligned.data(), data, size);
    writesAsQtDoes(reinterpret_cast<const uint8_t*>(aligned.data()), size);
    return 0;
}
