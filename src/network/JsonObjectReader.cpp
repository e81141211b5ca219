#include "network/JsonObjectReader.h"

#include "network/JsonDocument.h"
#include "network/JsonTape.h"

#include <array>
#include <cstring>

JsonObjectReader::JsonObjectReader(const char* data, qint64 size)
{
    JsonDocument& current = JsonDocument::ofThisThread();
    m_document = ++current.number;
    current.isObject = false;
    if (!current.usable || size <= 0 || size > kSizeLimit)
        return;
    if (current.parser.parse(data, static_cast<size_t>(size)).get(current.root) != simdjson::SUCCESS)
        return;
    if (!JsonTape(current.parser.doc).isReadAlikeByQt())
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
