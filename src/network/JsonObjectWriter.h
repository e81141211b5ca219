#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVarLengthArray>

#include <string_view>

/// Writes one JSON object as compact text by appending its members, byte for byte as QJsonDocument would.
///
/// Members are given in ascending order of their keys, which is the order in which Qt writes them (asserted
/// in debug builds). Keys are plain ASCII without characters that need an escape, except where a QString is
/// taken.
class JsonObjectWriter {
public:
    JsonObjectWriter();

    JsonObjectWriter& string(std::string_view key, const QString& value);
    JsonObjectWriter& integer(std::string_view key, qint64 value);
    JsonObjectWriter& integerNamed(const QString& key, qint64 value);
    JsonObjectWriter& boolean(std::string_view key, bool value);
    JsonObjectWriter& null(std::string_view key);
    JsonObjectWriter& strings(std::string_view key, const QStringList& values);
    /// A member whose @p json is compact text already.
    JsonObjectWriter& raw(std::string_view key, const QByteArray& json);

    /// A member that is an object: what follows up to endObject() are its members.
    JsonObjectWriter& beginObject(std::string_view key);
    JsonObjectWriter& beginObjectNamed(const QString& key);
    JsonObjectWriter& endObject();
    /// A member that is an array: what follows up to endArray() are its items.
    JsonObjectWriter& beginArray(std::string_view key);
    /// An item that is an object, ended by endObject().
    JsonObjectWriter& beginItem();
    JsonObjectWriter& endArray();

    /// Ends the object and hands out its text. The writer is done with then.
    QByteArray take();

private:
    void beginMember(std::string_view key);
    void beginMemberNamed(const QString& key);
    void appendInteger(qint64 value);
    void separate();
    void open(char bracket);
    char* extend(int size);
    void appendString(const QString& value);

    QByteArray m_json;
    /// Last key of every object or array that is open, the outermost first.
    QVarLengthArray<std::string_view, 8> m_lastKeys;
};
