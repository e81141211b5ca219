#include "network/JsonTape.h"

#include <cstring>

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
