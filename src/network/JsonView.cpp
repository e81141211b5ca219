#include "network/JsonView.h"

#include "network/JsonDocument.h"
#include "network/JsonObjectWriter.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>
#include <type_traits>

namespace {

using simdjson::dom::array;
using simdjson::dom::element;
using simdjson::dom::element_type;
using simdjson::dom::object;

using Words = std::array<quint64, 2>;
// The parser's handles are a pointer to the document and a position in it, on 64-bit machines as on 32-bit
// ones.
static_assert(sizeof(element) <= sizeof(Words) && std::is_trivially_copyable_v<element>);
static_assert(sizeof(array::iterator) <= sizeof(Words) && std::is_trivially_copyable_v<array::iterator>);

template<typename Handle>
Words toWords(const Handle& handle)
{
    Words words{};
    std::memcpy(words.data(), &handle, sizeof handle);
    return words;
}

template<typename Handle>
Handle fromWords(const Words& words)
{
    Handle handle;
    std::memcpy(static_cast<void*>(&handle), words.data(), sizeof handle);
    return handle;
}

QString fromUtf8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
}

bool isSameText(std::string_view utf8, const QString& text)
{
    const auto size = static_cast<size_t>(text.size());
    if (utf8.size() < size)
        return false;
    const QChar* const units = text.constData();
    for (size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte >= 0x80)
            return fromUtf8(utf8) == text;
        if (i >= size || units[i].unicode() != byte)
            return false;
    }
    return true;
}

/// Which of the members of the same key Qt would keep. That depends on the keys beside it and on their
/// number, so Qt is asked: with an object of the same keys that holds the members' indices.
element memberKeptByQt(const object& members, std::string_view key)
{
    JsonObjectWriter indices;
    int count = 0;
    for (const auto member : members)
        indices.integerNamed(fromUtf8(member.key), count++);
    int kept = QJsonDocument::fromJson(indices.take()).object().value(fromUtf8(key)).toInt();
    auto member = members.begin();
    while (kept-- > 0)
        ++member;
    return member.value();
}

} // namespace

bool JsonView::isAbsent() const
{
    return !m_document || m_document->number != m_number;
}

bool JsonView::isNull() const
{
    return !isAbsent() && fromWords<element>(m_place).type() == element_type::NULL_VALUE;
}

bool JsonView::isArray() const
{
    return !isAbsent() && fromWords<element>(m_place).type() == element_type::ARRAY;
}

bool JsonView::isObject() const
{
    return !isAbsent() && fromWords<element>(m_place).type() == element_type::OBJECT;
}

std::optional<std::string_view> JsonView::utf8() const
{
    std::string_view text;
    if (isAbsent() || fromWords<element>(m_place).get(text) != simdjson::SUCCESS)
        return std::nullopt;
    return text;
}

std::optional<QString> JsonView::string() const
{
    const auto text = utf8();
    if (!text)
        return std::nullopt;
    return fromUtf8(*text);
}

bool JsonView::isString(const QString& text) const
{
    std::string_view own;
    return !isAbsent() && fromWords<element>(m_place).get(own) == simdjson::SUCCESS && isSameText(own, text);
}

std::optional<qint64> JsonView::integer() const
{
    int64_t number = 0;
    if (isAbsent() || fromWords<element>(m_place).get(number) != simdjson::SUCCESS)
        return std::nullopt;
    return number;
}

template<typename Matches>
JsonView JsonView::findMember(const Matches& matches) const
{
    object members;
    if (isAbsent() || fromWords<element>(m_place).get(members) != simdjson::SUCCESS)
        return {};
    JsonView found;
    for (const auto member : members) {
        if (!matches(member.key))
            continue;
        if (found.m_document)
            return elsewhere(toWords(memberKeptByQt(members, member.key)));
        found = elsewhere(toWords(member.value));
    }
    return found;
}

JsonView JsonView::member(std::string_view key) const
{
    return findMember([&](std::string_view candidate) { return candidate == key; });
}

JsonView JsonView::memberNamed(const QString& key) const
{
    return findMember([&](std::string_view candidate) { return isSameText(candidate, key); });
}

JsonView::Cursor::Cursor(const JsonView& view)
{
    array items;
    if (view.isAbsent() || fromWords<element>(view.m_place).get(items) != simdjson::SUCCESS)
        return;
    m_array = view;
    m_position = toWords(items.begin());
    m_end = toWords(items.end());
}

bool JsonView::Cursor::atEnd() const
{
    return m_array.isAbsent() || m_position == m_end;
}

JsonView JsonView::Cursor::item() const
{
    return m_array.elsewhere(toWords(*fromWords<array::iterator>(m_position)));
}

void JsonView::Cursor::advance()
{
    auto position = fromWords<array::iterator>(m_position);
    ++position;
    m_position = toWords(position);
}
