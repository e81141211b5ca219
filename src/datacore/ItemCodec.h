#pragma once

#include <QString>
#include <QStringList>

#include <charconv>
#include <limits>
#include <optional>
#include <type_traits>
#include <vector>

/// How single values stand in a node's items. All numbers are in base 10 and independent of the locale.
namespace ItemText {

inline QString of(const QString& value)
{
    return value;
}
inline QString of(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}
/// A floating-point number in the shortest form that reads back as the same value.
template<typename T>
requires(std::is_arithmetic_v<T> && !std::is_same_v<T, bool>) QString of(T value)
{
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QString::fromLatin1(buffer, static_cast<int>(result.ptr - buffer));
}

inline std::optional<bool> toBool(const QString& item)
{
    if (item == QLatin1String("true"))
        return true;
    return item == QLatin1String("false") ? std::optional(false) : std::nullopt;
}

/// A number that T can hold.
template<typename T>
std::optional<T> toNumber(const QString& item)
{
    bool ok = false;
    if constexpr (std::is_floating_point_v<T>) {
        const double number = item.toDouble(&ok);
        return ok ? std::optional(static_cast<T>(number)) : std::nullopt;
    } else if constexpr (std::is_signed_v<T>) {
        const qlonglong number = item.toLongLong(&ok, 10);
        ok = ok && number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
        return ok ? std::optional(static_cast<T>(number)) : std::nullopt;
    } else {
        const qulonglong number = item.toULongLong(&ok, 10);
        ok = ok && number <= std::numeric_limits<T>::max();
        return ok ? std::optional(static_cast<T>(number)) : std::nullopt;
    }
}

} // namespace ItemText

/// Reads the fields of a plain struct from items, one item each, with a fault that stays. A struct that is
/// made of others gives them its codec.
class ItemReader {
public:
    static constexpr bool kReads = true;

    explicit ItemReader(const QStringList& items)
        : m_items(items)
    {
    }

    template<typename... Fields>
    void operator()(Fields&... fields)
    {
        (read(fields), ...);
    }
    /// All items that are left, as structs of one kind.
    template<typename Struct>
    void list(std::vector<Struct>& structs)
    {
        while (m_ok && m_next < m_items.size())
            Struct::visit(*this, structs.emplace_back());
    }
    /// An item that has rules of its own.
    template<typename T, typename Parse>
    void parsed(T& field, Parse&& parse)
    {
        if (const auto value = m_next < m_items.size() ? parse(m_items.at(m_next++)) : std::nullopt)
            field = *value;
        else
            m_ok = false;
    }
    /// A code that stands there by its name.
    template<typename Code, typename ToText, typename FromText>
    void named(Code& field, ToText&&, FromText&& fromText)
    {
        parsed(field, fromText);
    }
    /// Every item was read and none was faulty.
    bool isDone() const { return m_ok && m_next == m_items.size(); }

private:
    void read(QString& field)
    {
        parsed(field, [](const QString& item) { return std::optional(item); });
    }
    void read(bool& field) { parsed(field, &ItemText::toBool); }
    template<typename T>
    void read(T& field)
    {
        parsed(field, &ItemText::toNumber<T>);
    }

    const QStringList& m_items;
    int m_next = 0;
    bool m_ok = true;
};

/// Writes what ItemReader reads.
class ItemWriter {
public:
    static constexpr bool kReads = false;

    template<typename... Fields>
    void operator()(const Fields&... fields)
    {
        (m_items.append(ItemText::of(fields)), ...);
    }
    template<typename Struct>
    void list(const std::vector<Struct>& structs)
    {
        for (const Struct& each : structs)
            Struct::visit(*this, each);
    }
    void text(const QString& item) { m_items.append(item); }
    template<typename Code, typename ToText, typename FromText>
    void named(const Code& field, ToText&& toText, FromText&&)
    {
        text(toText(field));
    }
    QStringList take() { return std::move(m_items); }

private:
    QStringList m_items;
};
