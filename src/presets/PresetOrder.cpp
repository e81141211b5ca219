#include "presets/PresetOrder.h"

#include <QSet>

void PresetOrder::setNames(const QStringList& names)
{
    m_names = names;
    m_names.removeDuplicates();
    if (m_names.size() > kMostNames)
        m_names.erase(m_names.begin() + kMostNames, m_names.end());
}

QStringList PresetOrder::arranged(const QStringList& names) const
{
    QSet<QString> left(names.begin(), names.end());
    QStringList arranged;
    arranged.reserve(names.size());
    for (const QString& name : m_names) {
        if (left.remove(name))
            arranged << name;
    }
    for (const QString& name : names) {
        if (left.remove(name))
            arranged << name;
    }
    return arranged;
}

/// Each place that one of them had is taken by the next one of the new order.
void PresetOrder::rearrange(const QStringList& shown)
{
    const QSet<QString> isShown(shown.begin(), shown.end());
    QStringList names;
    int next = 0;
    for (const QString& name : std::as_const(m_names)) {
        if (!isShown.contains(name))
            names << name;
        else if (next < shown.size())
            names << shown[next++];
    }
    setNames(names + shown.mid(next));
}

void PresetOrder::insertBehind(const QString& name, const QString& newName)
{
    if (const int place = m_names.indexOf(name); place >= 0) {
        m_names.removeOne(newName);
        m_names.insert(m_names.indexOf(name) + 1, newName);
    }
}
