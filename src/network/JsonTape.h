#pragma once

#include <simdjson.h>

#include <cstdint>
#include <string_view>

/// The flat form of a whole document as the parser lays it down: one word a value in the order of the text,
/// its kind in the top byte; the word of a number is followed by its value, that of a container names the
/// place behind its end. Walking it costs a fraction of walking the tree of values above it, and this is done
/// for every packet.
class JsonTape {
public:
    explicit JsonTape(const simdjson::dom::document& document)
        : m_words(document.tape.get())
        , m_texts(document.string_buf.get())
    {
    }

    /// Whether Qt reads every value of the document as the parser does. It does not
    /// - for some numbers: one that underflows is an error to Qt. Any with a fraction or an exponent is left
    /// to it;
    /// - for strings with a byte order mark in front, which it drops in some of its encodings.
    /// Members of the same key, of which Qt keeps one, are left to JsonView: most objects are never looked
    /// into.
    bool isReadAlikeByQt() const;

private:
    uint64_t end() const { return m_words[0] & kPlaceMask; }
    char kind(uint64_t place) const { return static_cast<char>(m_words[place] >> 56); }
    /// The text of the string or key at @p place.
    std::string_view text(uint64_t place) const;

    static constexpr uint64_t kPlaceMask = (uint64_t{1} << 56) - 1;

    const uint64_t* m_words;
    const uint8_t* m_texts;
};
