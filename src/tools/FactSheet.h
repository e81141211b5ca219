#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// Facts in the order in which they are told, some under headings, for people as aligned lines and for
/// programs as JSON. A key in camel case is the key in JSON and, taken apart, the label in the text.
class FactSheet {
public:
    /// Facts from here on belong to an object of their own.
    void startSection(const QString& key);
    void add(const QString& key, const QString& text);
    void add(const QString& key, unsigned number);
    /// A value that reads otherwise in text.
    void add(const QString& key, const QJsonValue& value, const QString& text);
    /// One line of text for each, @p none when there is none.
    void add(const QString& key, const QStringList& texts, const QString& none);

    QJsonObject toJson() const;
    /// Ends with a line feed.
    QString toText() const;

private:
    struct Fact {
        QString key;
        QJsonValue value;
        QStringList lines;
    };
    struct Section {
        QString key; ///< empty for the facts before the first heading
        std::vector<Fact> facts;
    };

    std::vector<Section> m_sections{1};
};
