#include "tools/FactSheet.h"

#include <algorithm>

namespace {

constexpr QLatin1String kIndentation{"  ", 2};

/// "pictureRate" as "Picture rate".
QString labelOf(const QString& key)
{
    QString label;
    for (const QChar character : key) {
        if (label.isEmpty())
            label += character.toUpper();
        else if (character.isUpper())
            label += QLatin1Char(' ') + QString(character.toLower());
        else
            label += character;
    }
    return label;
}

} // namespace

void FactSheet::startSection(const QString& key)
{
    m_sections.push_back({key, {}});
}

void FactSheet::add(const QString& key, const QString& text)
{
    add(key, text, text);
}

void FactSheet::add(const QString& key, unsigned number)
{
    add(key, static_cast<qint64>(number), QString::number(number));
}

void FactSheet::add(const QString& key, const QJsonValue& value, const QString& text)
{
    m_sections.back().facts.push_back({key, value, {text}});
}

void FactSheet::add(const QString& key, const QStringList& texts, const QString& none)
{
    m_sections.back().facts.push_back(
        {key, QJsonArray::fromStringList(texts), texts.isEmpty() ? QStringList(none) : texts});
}

QJsonObject FactSheet::toJson() const
{
    QJsonObject whole;
    for (const Section& section : m_sections) {
        QJsonObject object;
        for (const Fact& fact : section.facts)
            (section.key.isEmpty() ? whole : object).insert(fact.key, fact.value);
        if (!section.key.isEmpty())
            whole.insert(section.key, object);
    }
    return whole;
}

QString FactSheet::toText() const
{
    int width = 0;
    for (const Section& section : m_sections) {
        for (const Fact& fact : section.facts)
            width = std::max(width, static_cast<int>(labelOf(fact.key).size()));
    }
    QString text;
    for (const Section& section : m_sections) {
        const bool hasHeading = !section.key.isEmpty();
        if (hasHeading)
            text += labelOf(section.key) + QLatin1Char('\n');
        // All values stand in one column, under a heading or not.
        const int labelWidth = width + (hasHeading ? 0 : static_cast<int>(kIndentation.size()));
        for (const Fact& fact : section.facts) {
            QString label = labelOf(fact.key);
            for (const QString& line : fact.lines) {
                if (hasHeading)
                    text += kIndentation;
                text += label.leftJustified(labelWidth) + kIndentation + line;
                while (text.endsWith(QLatin1Char(' ')))
                    text.chop(1);
                text += QLatin1Char('\n');
                label.clear();
            }
        }
    }
    return text;
}
