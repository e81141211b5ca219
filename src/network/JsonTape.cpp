#include "network/JsonTape.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace {

/// Up to so many keys are compared each with each, which is faster than sorting them.
constexpr size_t kFewKeys = 8;

} // namespace

bool JsonTape::isReadAlikeByQt() const
{
    for (uint64_t place = 1; place < end(); ++place) {
        switch (kind(place)) {
        case 'd':
            return false;
        case 'l':
        case 'u':
            ++place;
            break;
        case '"':
            if (text(place).starts_with("\xEF\xBB\xBF"))
                return false;
            break;
        case '{':
            if (memberCount(place) > 1 && hasDuplicateKeys(place))
                return false;
            break;
        default:
            break;
        }
    }
    return true;
}

std::string_view JsonTape::text(uint64_t place) const
{
    const uint8_t* const start = m_texts + (m_words[place] & kPlaceMask);
    uint32_t length = 0;
    std::memcpy(&length, start, sizeof length);
    return {reinterpret_cast<const char*>(start) + sizeof length, length};
}

uint64_t JsonTape::behind(uint64_t place) const
{
    switch (kind(place)) {
    case '{':
    case '[':
        return static_cast<uint32_t>(m_words[place]);
    case 'l':
    case 'u':
    case 'd':
        return place + 2;
    default:
        return place + 1;
    }
}

bool JsonTape::hasDuplicateKeys(uint64_t object) const
{
    std::array<uint64_t, kFewKeys> few; // places of keys
    std::array<uint32_t, kFewKeys> shapes; // their lengths and first bytes, which nearly always differ
    size_t count = 0;
    uint64_t key = object + 1;
    for (; kind(key) != '}' && count < kFewKeys; key = behind(key + 1)) {
        const std::string_view own = text(key);
        const auto shape = static_cast<uint32_t>(own.size() << 8U)
            | (own.empty() ? 0U : static_cast<unsigned char>(own.front()));
        for (size_t i = 0; i < count; ++i) {
            if (shapes[i] == shape && text(few[i]) == own)
                return true;
        }
        shapes[count] = shape;
        few[count++] = key;
    }
    if (kind(key) == '}')
        return false;

    std::vector<std::string_view> many;
    for (const uint64_t place : few)
        many.push_back(text(place));
    for (; kind(key) != '}'; key = behind(key + 1))
        many.push_back(text(key));
    std::sort(many.begin(), many.end());
    return std::adjacent_find(many.begin(), many.end()) != many.end();
}
