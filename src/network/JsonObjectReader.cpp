#include "network/JsonObjectReader.h"

#include <simdjson.h>

#include <algorithm>

namespace {

using simdjson::dom::element;
using simdjson::dom::element_type;

/// Half of Qt's own limit: whatever nests deeper is left to Qt.
constexpr size_t kDepthLimit = 512;

/// The parser of this thread with its last document. Its buffers stay, so that a small packet costs no
/// allocation.
struct Document {
    Document()
    {
        // The size is that of the buffers made ready here; they grow with the documents.
        usable = parser.allocate(16 * 1024, kDepthLimit) == simdjson::SUCCESS;
    }

    simdjson::dom::parser parser;
    element root;
    bool usable = false;
};

Document& document()
{
    static thread_local Document instance;
    return instance;
}

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

/// The last member of that name, which is the one that Qt keeps.
std::optional<element> lastMember(std::string_view key)
{
    std::optional<element> found;
    simdjson::dom::object members;
    if (document().root.get(members) != simdjson::SUCCESS)
        return found;
    for (const auto member : members) {
        if (member.key == key)
            found = member.value;
    }
    return found;
}

} // namespace

JsonObjectReader::JsonObjectReader(const char* data, qint64 size)
{
    Document& current = document();
    if (!current.usable || size <= 0 || size > kSizeLimit)
        return;
    if (current.parser.parse(data, static_cast<size_t>(size)).get(current.root) != simdjson::SUCCESS)
        return;
    if (!isReadAlikeByQt(current.root))
        return;
    if (current.root.is_object())
        m_verdict = Verdict::Object;
    else if (current.root.is_array())
        m_verdict = Verdict::Array;
}

std::optional<QString> JsonObjectReader::string(std::string_view key) const
{
    if (m_verdict != Verdict::Object)
        return std::nullopt;
    const auto value = lastMember(key);
    std::string_view text;
    if (!value || value->get(text) != simdjson::SUCCESS)
        return std::nullopt;
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

std::optional<qint64> JsonObjectReader::integer(std::string_view key) const
{
    if (m_verdict != Verdict::Object)
        return std::nullopt;
    const auto value = lastMember(key);
    int64_t number = 0;
    if (!value || value->get(number) != simdjson::SUCCESS)
        return std::nullopt;
    return number;
}

bool JsonObjectReader::contains(std::string_view key) const
{
    return m_verdict == Verdict::Object && lastMember(key).has_value();
}
