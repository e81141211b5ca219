#pragma once

#include <QString>

#include <array>
#include <optional>
#include <string_view>

struct JsonDocument;

/// An ASCII key as the bytes that it is compared by.
constexpr std::string_view asciiView(QLatin1String key)
{
    return {key.data(), static_cast<size_t>(key.size())};
}

/// One value of the document that a JsonObjectReader has read, looked at in place.
///
/// It is of use on its thread until the next reader is made there; from then on it is absent.
class JsonView {
public:
    /// The value itself is absent: as a member that is not there.
    JsonView() = default;

    bool isAbsent() const;
    bool isNull() const;
    bool isArray() const;
    bool isObject() const;

    /// The text of a string in UTF-8, as long as the value itself is of use; nothing for any other value.
    std::optional<std::string_view> utf8() const;
    /// The same as a QString.
    std::optional<QString> string() const;
    /// Whether this is a string of exactly that text; tells so without making a QString.
    bool isString(const QString& text) const;
    /// An integer of 64 bits; nothing for any other value.
    std::optional<qint64> integer() const;

    /// The member @p key of an object; otherwise absent.
    JsonView member(std::string_view key) const;
    JsonView memberNamed(const QString& key) const;

    /// Calls @p visit(JsonView) for each item of an array, in order, until it returns false. Whether all were
    /// visited.
    template<typename Visit>
    bool forEachItem(Visit&& visit) const;

private:
    friend class JsonObjectReader;
    class Cursor;

    JsonView(const JsonDocument* document, quint64 number, std::array<quint64, 2> place)
        : m_document(document)
        , m_number(number)
        , m_place(place)
    {
    }
    JsonView elsewhere(std::array<quint64, 2> place) const { return {m_document, m_number, place}; }
    template<typename Matches>
    JsonView findMember(const Matches& matches) const;

    const JsonDocument* m_document = nullptr;
    quint64 m_number = 0; ///< which of its documents the value belongs to
    std::array<quint64, 2> m_place{}; ///< the parser's own handle of the value
};

/// Walks an array; at its end from the start for any other value.
class JsonView::Cursor {
public:
    explicit Cursor(const JsonView& array);
    bool atEnd() const;
    JsonView item() const;
    void advance();

private:
    JsonView m_array;
    std::array<quint64, 2> m_position{};
    std::array<quint64, 2> m_end{};
};

template<typename Visit>
bool JsonView::forEachItem(Visit&& visit) const
{
    for (Cursor cursor(*this); !cursor.atEnd(); cursor.advance()) {
        if (!visit(cursor.item()))
            return false;
    }
    return true;
}
