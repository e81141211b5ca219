#include "network/JsonTape.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace {

/// Up to so many keys are compared each with each, which is faster than sorting them.
constexpr size_t kFewKeys = 8;

template<typename Keys>
bool hasDuplicates(Keys begin, Keys end)
{
    for (Keys key = begin; key != end; ++key) {
        if (std::find(begin, key, *key) != key)
            return true;
    }
    return false;
}

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
            if (hasDuplicateKeys(place))
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
    std::array<std::string_view, kFewKeys> few;
    size_t count = 0;
    uint64_t key = object + 1;
    for (; kind(key) != '}' && count < kFewKeys; key = behind(key + 1))
        few[count++] = text(key);
    if (kind(key) == '}')
        return hasDuplicates(few.begin(), few.begin() + count);

    std::vector<std::string_view> many(few.begin(), few.end());
    for (; kind(key) != '}'; key = behind(key + 1))
        many.push_back(text(key));
    std::sort(many.begin(), many.end());
    return std::adjacent_find(many.begin(), many.end()) != many.end();
}
