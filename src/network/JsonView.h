#pragma once

#include <QString>

#include <array>
#include <optional>
#include <string_view>

/// An ASCII key as the bytes that it is compared by.
constexpr std::string_view asciiView(QLatin1String key)
{
    return {key.data(), static_cast<size_t>(key.size())};
}

/// One value of the document that a JsonObjectReader has read, looked at in place.
///
/// It is of use until the next reader is made on the same thread; from then on it is absent.
class JsonView {
public:
    /// The value itself is absent: as a member that is not there.
    JsonView() = default;

    bool isAbsent() const;
    bool isNull() const;
    bool isArray() const;
    bool isObject() const;

    /// The text of a string; nothing for any other value.
    std::optional<QString> string() const;
    /// Whether this is a string of exactly that text; tells so without making a QString.
    bool isString(const QString& text) const;
    /// An integer of 64 bits; nothing for any other value.
    std::optional<qint64> integer() const;

    /// The member @p key of an object, the last one where there are several; otherwise absent.
    JsonView member(std::string_view key) const;
    JsonView memberNamed(const QString& key) const;

    /// Calls @p visit(JsonView) for each item of an array, in order, until it returns false. Whether all were
    /// visited.
    template<typename Visit>
    bool forEachItem(Visit&& visit) const
    {
        Cursor cursor(*this);
        while (!cursor.atEnd()) {
            if (!visit(cursor.item()))
                return false;
            cursor.advance();
        }
        return true;
    }

private:
    friend class JsonObjectReader;

    /// Walks an array; at its end from the start for any other value.
    class Cursor {
    public:
        explicit Cursor(const JsonView& array);
        bool atEnd() const;
        JsonView item() const;
        void advance();

    private:
        quint64 m_document = 0;
        std::array<quint64, 2> m_position{};
        std::array<quint64, 2> m_end{};
    };

    JsonView(quint64 document, std::array<quint64, 2> place)
        : m_document(document)
        , m_place(place)
    {
    }
    template<typename Matches>
    JsonView lastMember(const Matches& matches) const;

    quint64 m_document = 0; ///< number of the document; 0 is none
    std::array<quint64, 2> m_place{}; ///< the parser's own handle of the value
};
