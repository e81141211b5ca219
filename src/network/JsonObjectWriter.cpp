#include "network/JsonObjectWriter.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr int kUsualSize = 512;

/// Beyond 2^53 a double no longer holds every integer.
constexpr qint64 kLargestPlainInteger = qint64{1} << 53;

const char* shortEscape(char16_t unit)
{
    switch (unit) {
    case u'"':
        return "\\\"";
    case u'\\':
        return "\\\\";
    case u'\b':
        return "\\b";
    case u'\f':
        return "\\f";
    case u'\n':
        return "\\n";
    case u'\r':
        return "\\r";
    case u'\t':
        return "\\t";
    default:
        return nullptr;
    }
}

char* writeHexEscape(char* out, char16_t unit)
{
    static constexpr char digits[] = "0123456789abcdef";
    *out++ = '\\';
    *out++ = 'u';
    for (int shift = 12; shift >= 0; shift -= 4)
        *out++ = digits[(unit >> shift) & 0xf];
    return out;
}

char* writeAscii(char* out, char16_t unit)
{
    if (const char* escape = shortEscape(unit)) {
        *out++ = *escape++;
        *out++ = *escape;
        return out;
    }
    if (unit < 0x20)
        return writeHexEscape(out, unit);
    *out++ = static_cast<char>(unit);
    return out;
}

/// Writes the unit at @p i, and with it the next one where the two are a pair.
char* writeUnit(char* out, const char16_t* units, int length, int& i)
{
    const char16_t unit = units[i];
    if (unit < 0x80)
        return writeAscii(out, unit);
    if (unit < 0x800) {
        *out++ = static_cast<char>(0xC0 | (unit >> 6));
    } else if (QChar::isHighSurrogate(unit) && i + 1 < length && QChar::isLowSurrogate(units[i + 1])) {
        const char32_t point = QChar::surrogateToUcs4(unit, units[++i]);
        *out++ = static_cast<char>(0xF0 | (point >> 18));
        *out++ = static_cast<char>(0x80 | ((point >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (point & 0x3F));
        return out;
    } else if (QChar::isSurrogate(unit) || unit == QChar::ByteOrderMark) {
        // Half a pair has no UTF-8, and Qt drops a bare byte order mark in front of a text when it reads it.
        return writeHexEscape(out, unit);
    } else {
        *out++ = static_cast<char>(0xE0 | (unit >> 12));
        *out++ = static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
    }
    *out++ = static_cast<char>(0x80 | (unit & 0x3F));
    return out;
}

/// Whether every unit stands for itself as one byte. Nearly always so; it looks at all of them, which the
/// compiler turns into vector instructions.
bool isPlain(const char16_t* units, int length)
{
    bool plain = true;
    for (int i = 0; i < length; ++i)
        plain &= (units[i] >= 0x20) & (units[i] < 0x80) & (units[i] != u'"') & (units[i] != u'\\');
    return plain;
}

} // namespace

JsonObjectWriter::JsonObjectWriter()
{
    m_json.reserve(kUsualSize);
    open('{');
}

JsonObjectWriter& JsonObjectWriter::string(std::string_view key, const QString& value)
{
    beginMember(key);
    appendString(value);
    return *this;
}

JsonObjectWriter& JsonObjectWriter::integer(std::string_view key, qint64 value)
{
    beginMember(key);
    appendInteger(value);
    return *this;
}

JsonObjectWriter& JsonObjectWriter::integerNamed(const QString& key, qint64 value)
{
    beginMemberNamed(key);
    appendInteger(value);
    return *this;
}

JsonObjectWriter& JsonObjectWriter::boolean(std::string_view key, bool value)
{
    beginMember(key);
    m_json.append(value ? "true" : "false");
    return *this;
}

JsonObjectWriter& JsonObjectWriter::null(std::string_view key)
{
    beginMember(key);
    m_json.append("null");
    return *this;
}

JsonObjectWriter& JsonObjectWriter::strings(std::string_view key, const QStringList& values)
{
    beginMember(key);
    m_json.append('[');
    for (int i = 0; i < values.size(); ++i) {
        if (i > 0)
            m_json.append(',');
        appendString(values.at(i));
    }
    m_json.append(']');
    return *this;
}

JsonObjectWriter& JsonObjectWriter::raw(std::string_view key, const QByteArray& json)
{
    beginMember(key);
    m_json.append(json);
    return *this;
}

JsonObjectWriter& JsonObjectWriter::beginObject(std::string_view key)
{
    beginMember(key);
    open('{');
    return *this;
}

JsonObjectWriter& JsonObjectWriter::beginObjectNamed(const QString& key)
{
    beginMemberNamed(key);
    open('{');
    return *this;
}

JsonObjectWriter& JsonObjectWriter::endObject()
{
    m_json.append('}');
    m_lastKeys.removeLast();
    return *this;
}

JsonObjectWriter& JsonObjectWriter::beginArray(std::string_view key)
{
    beginMember(key);
    open('[');
    return *this;
}

JsonObjectWriter& JsonObjectWriter::beginItem()
{
    separate();
    open('{');
    return *this;
}

JsonObjectWriter& JsonObjectWriter::endArray()
{
    m_json.append(']');
    m_lastKeys.removeLast();
    return *this;
}

QByteArray JsonObjectWriter::take()
{
    Q_ASSERT(m_lastKeys.size() == 1);
    m_json.append('}');
    return std::exchange(m_json, {});
}

void JsonObjectWriter::beginMember(std::string_view key)
{
    Q_ASSERT_X(m_lastKeys.last() < key || m_json.endsWith('{'), "JsonObjectWriter", "keys must ascend");
    separate();
    char* const out = extend(static_cast<int>(key.size()) + 3);
    out[0] = '"';
    std::memcpy(out + 1, key.data(), key.size());
    std::memcpy(out + 1 + key.size(), "\":", 2);
    m_lastKeys.last() = key;
}

void JsonObjectWriter::beginMemberNamed(const QString& key)
{
    separate();
    appendString(key);
    m_json.append(':');
}

void JsonObjectWriter::appendInteger(qint64 value)
{
    if (value >= -kLargestPlainInteger && value <= kLargestPlainInteger) {
        m_json.append(QByteArray::number(value));
        return;
    }
    // Qt writes every number by way of a double; it knows best how.
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    m_json.append(array.mid(1, array.size() - 2));
}

/// Puts a comma behind whatever stands before in the same object or array.
void JsonObjectWriter::separate()
{
    if (!m_json.endsWith('{') && !m_json.endsWith('['))
        m_json.append(',');
}

void JsonObjectWriter::open(char bracket)
{
    m_json.append(bracket);
    m_lastKeys.append(std::string_view());
}

/// Makes the text longer; returns the place of what is new.
char* JsonObjectWriter::extend(int size)
{
    const int before = m_json.size();
    m_json.resize(before + size);
    return m_json.data() + before;
}

void JsonObjectWriter::appendString(const QString& value)
{
    const int length = value.size();
    const auto* const units = reinterpret_cast<const char16_t*>(value.utf16());
    if (isPlain(units, length)) {
        char* const text = extend(length + 2);
        text[0] = '"';
        std::transform(units, units + length, text + 1,
                       [](char16_t unit) { return static_cast<char>(unit); });
        text[length + 1] = '"';
        return;
    }
    // Written in place: no UTF-16 unit takes more than the six bytes of an escape.
    char* out = extend(6 * length + 2);
    *out++ = '"';
    for (int i = 0; i < length; ++i)
        out = writeUnit(out, units, length, i);
    *out++ = '"';
    m_json.resize(static_cast<int>(out - m_json.constData()));
}
