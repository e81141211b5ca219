#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string_view>

/// Writes one JSON object as compact text by appending its members, byte for byte as QJsonDocument would.
///
/// Members are given in ascending order of their keys, which is the order in which Qt writes them (asserted
/// in debug builds). Keys are plain ASCII without characters that need an escape.
class JsonObjectWriter {
public:
    JsonObjectWriter();

    JsonObjectWriter& string(std::string_view key, const QString& value);
    JsonObjectWriter& integer(std::string_view key, qint64 value);
    JsonObjectWriter& boolean(std::string_view key, bool value);
    JsonObjectWriter& null(std::string_view key);
    JsonObjectWriter& strings(std::string_view key, const QStringList& values);
    /// A member whose @p json is compact text already.
    JsonObjectWriter& raw(std::string_view key, const QByteArray& json);

    /// Ends the object and hands out its text. The writer is done with then.
    QByteArray take();

private:
    void beginMember(std::string_view key);
    void appendString(const QString& value);

    QByteArray m_json;
    std::string_view m_lastKey;
};
