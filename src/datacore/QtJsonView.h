#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>
#include <string_view>

/// A QJsonValue with the face of a JsonView, so that nodes read both by the same rules.
class QtJsonView {
public:
    explicit QtJsonView(const QJsonValue& value)
        : m_value(value)
    {
    }

    bool isAbsent() const { return m_value.isUndefined(); }
    bool isNull() const { return m_value.isNull(); }
    bool isArray() const { return m_value.isArray(); }
    bool isObject() const { return m_value.isObject(); }

    std::optional<QString> string() const
    {
        return m_value.isString() ? std::optional(m_value.toString()) : std::nullopt;
    }
    bool isString(const QString& text) const { return m_value.isString() && m_value.toString() == text; }
    std::optional<qint64> integer() const
    {
        return m_value.isDouble() ? std::optional<qint64>(m_value.toInt()) : std::nullopt;
    }

    QtJsonView member(std::string_view key) const
    {
        return memberNamed(QString::fromLatin1(key.data(), static_cast<int>(key.size())));
    }
    QtJsonView memberNamed(const QString& key) const
    {
        return QtJsonView(m_value.isObject() ? m_value.toObject().value(key)
                                             : QJsonValue(QJsonValue::Undefined));
    }

    template<typename Visit>
    bool forEachItem(Visit&& visit) const
    {
        const QJsonArray items = m_value.toArray();
        for (const QJsonValue item : items) {
            if (!visit(QtJsonView(item)))
                return false;
        }
        return true;
    }

private:
    QJsonValue m_value;
};
