#include "network/JsonObjectReader.h"

#include <simdjson.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

using simdjson::dom::element;

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

/// Whether Qt reads every value of the document alike. It does not for some numbers (a tiny one that
/// underflows is an error to Qt), nor for strings with a byte order mark in front, which it drops in some of
/// its encodings. A document with either is left to it.
///
/// Walks the parser's tape, the flat form of the whole document, rather than the tree above it: this runs for
/// every packet. Each word of the tape has its kind in the top byte; that of a number is followed by its
/// value.
bool isReadAlikeByQt(const simdjson::dom::document& parsed)
{
    constexpr uint64_t kPlaceMask = (uint64_t{1} << 56) - 1;
    const uint64_t* const tape = parsed.tape.get();
    const uint64_t end = tape[0] & kPlaceMask;
    for (uint64_t i = 1; i < end; ++i) {
        switch (tape[i] >> 56) {
        case 'd':
            return false;
        case 'l':
        case 'u':
            ++i;
            break;
        case '"': {
            const uint8_t* const text = parsed.string_buf.get() + (tape[i] & kPlaceMask);
            uint32_t length = 0;
            std::memcpy(&length, text, sizeof length);
            if (beginsWithByteOrderMark({reinterpret_cast<const char*>(text) + sizeof length, length}))
                return false;
            break;
        }
        default:
            break;
        }
    }
    return true;
}

/// Up to so many keys are compared each with each, which is faster than sorting them.
constexpr size_t kFewKeys = 8;

/// Whether two members have one key. Which of them Qt keeps depends on how many members there are.
bool hasDuplicateKeys(const simdjson::dom::object& members)
{
    static thread_local std::vector<std::string_view> keys;
    keys.clear();
    for (const auto member : members)
        keys.push_back(member.key);
    if (keys.size() <= kFewKeys) {
        for (auto key = keys.begin(); key != keys.end(); ++key) {
            if (std::find(keys.begin(), key, *key) != key)
                return true;
        }
        return false;
    }
    std::sort(keys.begin(), keys.end());
    return std::adjacent_find(keys.begin(), keys.end()) != keys.end();
}

std::optional<element> findMember(std::string_view key)
{
    simdjson::dom::object members;
    if (document().root.get(members) != simdjson::SUCCESS)
        return std::nullopt;
    for (const auto member : members) {
        if (member.key == key)
            return member.value;
    }
    return std::nullopt;
}

} // namespace

JsonObjectReader::JsonObjectReader(const char* data, qint64 size)
{
    Document& current = document();
    if (!current.usable || size <= 0 || size > kSizeLimit)
        return;
    if (current.parser.parse(data, static_cast<size_t>(size)).get(current.root) != simdjson::SUCCESS)
        return;
    if (!isReadAlikeByQt(current.parser.doc))
        return;
    simdjson::dom::object members;
    if (current.root.is_array())
        m_verdict = Verdict::Array;
    else if (current.root.get(members) == simdjson::SUCCESS && !hasDuplicateKeys(members))
        m_verdict = Verdict::Object;
}

std::optional<std::string_view> JsonObjectReader::utf8(std::string_view key) const
{
    if (m_verdict != Verdict::Object)
        return std::nullopt;
    const auto value = findMember(key);
    std::string_view text;
    if (!value || value->get(text) != simdjson::SUCCESS)
        return std::nullopt;
    return text;
}

std::optional<QString> JsonObjectReader::string(std::string_view key) const
{
    const auto text = utf8(key);
    if (!text)
        return std::nullopt;
    return QString::fromUtf8(text->data(), static_cast<int>(text->size()));
}

std::optional<qint64> JsonObjectReader::integer(std::string_view key) const
{
    if (m_verdict != Verdict::Object)
        return std::nullopt;
    const auto value = findMember(key);
    int64_t number = 0;
    if (!value || value->get(number) != simdjson::SUCCESS)
        return std::nullopt;
    return number;
}

bool JsonObjectReader::contains(std::string_view key) const
{
    return m_verdict == Verdict::Object && findMember(key).has_value();
}
