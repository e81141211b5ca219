#include "network/JsonObjectReader.h"

#include "network/JsonDocument.h"

#include <algorithm>
#include <cstring>

namespace {

using simdjson::dom::element;
using simdjson::dom::element_type;

bool beginsWithByteOrderMark(std::string_view text)
{
    return text.starts_with("\xEF\xBB\xBF");
}

/// Whether Qt reads every value below @p value alike. It does not for some numbers (a tiny one that
/// underflows is an error to Qt), so a document with any floating-point number is left to it.
bool isReadAlikeByQt(const element& value)
{
    switch (value.type()) {
    case element_type::DOUBLE:
        return false;
    case element_type::STRING: {
        std::string_view text;
        return value.get(text) == simdjson::SUCCESS && !beginsWithByteOrderMark(text);
    }
    case element_type::ARRAY: {
        simdjson::dom::array items;
        if (value.get(items) != simdjson::SUCCESS)
            return false;
        return std::all_of(items.begin(), items.end(), isReadAlikeByQt);
    }
    case element_type::OBJECT: {
        simdjson::dom::object members;
        if (value.get(members) != simdjson::SUCCESS)
            return false;
        return std::all_of(members.begin(), members.end(), [](const auto& member) {
            return !beginsWithByteOrderMark(member.key) && isReadAlikeByQt(member.value);
        });
    }
    default:
        return true;
    }
}

} // namespace

JsonObjectReader::JsonObjectReader(const char* data, qint64 size)
{
    JsonDocument& current = JsonDocument::ofThisThread();
    m_document = ++current.number;
    current.isObject = false;
    if (!current.usable || size <= 0 || size > kSizeLimit)
        return;
    if (current.parser.parse(data, static_cast<size_t>(size)).get(current.root) != simdjson::SUCCESS)
        return;
    if (!isReadAlikeByQt(current.root))
        return;
    current.isObject = current.root.is_object();
    if (current.isObject)
        m_verdict = Verdict::Object;
    else if (current.root.is_array())
        m_verdict = Verdict::Array;
}

JsonView JsonObjectReader::root() const
{
    return documentRead(m_document);
}

JsonView JsonObjectReader::documentRead(quint64 documentNumber)
{
    const JsonDocument& current = JsonDocument::ofThisThread();
    if (!current.isObject || current.number != documentNumber)
        return {};
    std::array<quint64, 2> place{};
    static_assert(sizeof current.root <= sizeof place);
    std::memcpy(place.data(), &current.root, sizeof current.root);
    return JsonView(&current, documentNumber, place);
}

std::optional<QString> JsonObjectReader::string(std::string_view key) const
{
    return root().member(key).string();
}

std::optional<qint64> JsonObjectReader::integer(std::string_view key) const
{
    return root().member(key).integer();
}

bool JsonObjectReader::contains(std::string_view key) const
{
    return !root().member(key).isAbsent();
}
