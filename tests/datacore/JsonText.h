#pragma once

#include <QJsonDocument>
#include <QJsonObject>

/// The object that is written as that text; the text may have ' for ".
inline QJsonObject jsonObject(QByteArray text)
{
    return QJsonDocument::fromJson(text.replace('\'', '"')).object();
}

inline QByteArray jsonText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).replace('"', '\'');
}
