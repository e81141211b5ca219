#include "network/SerialisableDataPacket.h"

#include "network/JsonObjectReader.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QtEndian>

#include <algorithm>
#include <string>
#include <string_view>

using Velmora::LogThrottle;

namespace {

constexpr int kLengthSize = 4;
constexpr int kReservedPayload = 1500;
/// No document has this number.
constexpr quint64 kNotReadYet = 1;

/// The class name as a string shared with the packet before, since most packets in a row are of one class.
QString sharedClassName(std::string_view utf8)
{
    static thread_local std::string lastUtf8;
    static thread_local QString last;
    if (utf8 != lastUtf8) {
        lastUtf8 = utf8;
        last = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
    }
    return last;
}

} // namespace

SerialisableDataPacket::SerialisableDataPacket()
    : m_object(std::in_place)
{
}

SerialisableDataPacket::SerialisableDataPacket(const QString& className)
    : m_object(QJsonObject{{kClassKey, className}})
{
}

SerialisableDataPacket::SerialisableDataPacket(const QByteArray& frame, const Header& header)
    : RawDataPacket(frame, header)
    , m_text(Text::Received)
{
    QJsonParseError error;
    read(text(), textSize(), error);
    if (error.error != QJsonParseError::NoError) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "SerialisablePacket failed to parse packet {}", error.errorString());
    }
}

SerialisableDataPacket SerialisableDataPacket::fromJson(const QJsonObject& object)
{
    SerialisableDataPacket packet;
    packet.m_object = object;
    return packet;
}

SerialisableDataPacket SerialisableDataPacket::fromCompactJson(const QByteArray& compactJson)
{
    SerialisableDataPacket packet;
    packet.m_text = Text::Compact;
    packet.m_compactText = compactJson;
    QJsonParseError error;
    packet.read(compactJson.constData(), compactJson.size(), error);
    Q_ASSERT(error.error == QJsonParseError::NoError);
    return packet;
}

SerialisableDataPacket SerialisableDataPacket::fromCompactJson(const QByteArray& compactJson,
                                                               const QString& className)
{
    SerialisableDataPacket packet;
    packet.m_text = Text::Compact;
    packet.m_compactText = compactJson;
    packet.m_className = className;
    packet.m_documentNumber = kNotReadYet;
    packet.m_object.reset();
    return packet;
}

SerialisableDataPacket SerialisableDataPacket::deserialise(const QByteArray& json, QJsonParseError& error)
{
    SerialisableDataPacket packet;
    packet.m_object = QJsonDocument::fromJson(json, &error).object();
    if (error.error != QJsonParseError::NoError) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "SerialisablePacket failed to parse packet: {}",
                     error.errorString());
    }
    return packet;
}

QByteArray SerialisableDataPacket::getSerialisedPayloadForTransmit() const
{
    QByteArray bytes;
    bytes.reserve(kReservedPayload);
    bytes.append(kLengthSize, '\0');
    const int length = serialiseTo(bytes);
    qToBigEndian<quint32>(static_cast<quint32>(length), bytes.data());
    return bytes;
}

QString SerialisableDataPacket::getPacketClassName() const
{
    return m_text == Text::None ? object().value(kClassKey).toString() : m_className;
}

QByteArray SerialisableDataPacket::serialise() const
{
    // Received text need not be in Qt's own form (order of members, white space, escapes), so it is not
    // reused.
    return m_text == Text::Compact ? m_compactText : QJsonDocument(object()).toJson(QJsonDocument::Compact);
}

int SerialisableDataPacket::serialiseTo(QByteArray& target) const
{
    const QByteArray json = serialise();
    target.append(json);
    return json.size();
}

void SerialisableDataPacket::insertOtherPacketIntoThis(const QString& key,
                                                       const SerialisableDataPacket& other)
{
    setValue(key, other.object());
}

void SerialisableDataPacket::insertOtherPacketsIntoThis(const QString& key,
                                                        const std::vector<SerialisableDataPacket>& others)
{
    QJsonArray array;
    for (const SerialisableDataPacket& other : others)
        array.append(other.object());
    setValue(key, array);
}

SerialisableDataPacket SerialisableDataPacket::extractOtherPacketFromThis(const QString& key, bool& ok) const
{
    const QJsonObject found = object().value(key).toObject();
    ok = !found.isEmpty();
    return fromJson(found);
}

std::vector<SerialisableDataPacket> SerialisableDataPacket::extractOtherPacketsFromThis(const QString& key,
                                                                                        bool& ok) const
{
    const QJsonArray array = object().value(key).toArray();
    std::vector<SerialisableDataPacket> packets;
    packets.reserve(static_cast<size_t>(array.size()));
    ok = !array.isEmpty();
    for (const QJsonValue element : array) {
        if (!element.isObject()) {
            ok = false;
            return {};
        }
        packets.push_back(fromJson(element.toObject()));
    }
    return packets;
}

bool SerialisableDataPacket::operator==(const SerialisableDataPacket& other) const
{
    return object() == other.object();
}

const QJsonObject& SerialisableDataPacket::object() const
{
    if (!m_object)
        m_object = QJsonDocument::fromJson(QByteArray::fromRawData(text(), textSize())).object();
    return *m_object;
}

void SerialisableDataPacket::setValue(const QString& key, const QJsonValue& value)
{
    object();
    m_object->insert(key, value);
    m_text = Text::None;
    m_compactText.clear();
    m_className.clear();
    m_documentNumber = 0;
}

JsonView SerialisableDataPacket::view() const
{
    if (m_documentNumber == 0)
        return {};
    const JsonView known = JsonObjectReader::documentRead(m_documentNumber);
    if (!known.isAbsent())
        return known;
    const JsonObjectReader reader(text(), textSize());
    m_documentNumber = reader.documentNumber();
    return reader.root();
}

bool SerialisableDataPacket::containsMember(QLatin1String key) const
{
    const JsonView members = view();
    return members.isAbsent() ? object().contains(key) : !members.member(asciiView(key)).isAbsent();
}

QString SerialisableDataPacket::stringMember(QLatin1String key) const
{
    const JsonView members = view();
    if (members.isAbsent())
        return object().value(key).toString();
    return members.member(asciiView(key)).string().value_or(QString());
}

int SerialisableDataPacket::intMember(QLatin1String key) const
{
    const JsonView members = view();
    if (members.isAbsent())
        return object().value(key).toInt();
    const qint64 number = members.member(asciiView(key)).integer().value_or(0);
    return number == static_cast<int>(number) ? static_cast<int>(number) : 0;
}

/// Checks the text and takes the class name out of it. Whatever the fast reader leaves to Qt is parsed at
/// once.
void SerialisableDataPacket::read(const char* json, qint64 size, QJsonParseError& error)
{
    error.error = QJsonParseError::NoError;
    m_object.reset();
    const JsonObjectReader reader(json, size);
    switch (reader.verdict()) {
    case JsonObjectReader::Verdict::Object:
        m_className =
            sharedClassName(reader.root().member(asciiView(kClassKey)).utf8().value_or(std::string_view()));
        m_documentNumber = reader.documentNumber();
        return;
    case JsonObjectReader::Verdict::Array:
        m_object.emplace();
        break;
    case JsonObjectReader::Verdict::AskQt:
        m_object =
            QJsonDocument::fromJson(QByteArray::fromRawData(json, static_cast<int>(size)), &error).object();
        break;
    }
    m_className = m_object->value(kClassKey).toString();
}

const char* SerialisableDataPacket::text() const
{
    return m_text == Text::Compact ? m_compactText.constData()
                                   : payload().constData() + std::min(kLengthSize, payload().size());
}

int SerialisableDataPacket::textSize() const
{
    return m_text == Text::Compact ? m_compactText.size() : std::max(0, payload().size() - kLengthSize);
}
