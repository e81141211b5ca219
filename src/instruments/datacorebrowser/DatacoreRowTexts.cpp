#include "instruments/datacorebrowser/DatacoreRowTexts.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using ServerCommon::DatacoreTree;

namespace DatacoreRowTexts {

QString ofTree(DatacoreTree tree)
{
    switch (tree) {
    case DatacoreTree::Configuration:
        return QCoreApplication::translate("DatacoreRowTexts", "Configuration");
    case DatacoreTree::Status:
        return QCoreApplication::translate("DatacoreRowTexts", "Status, read only");
    case DatacoreTree::NonPersistentConfiguration:
        return QCoreApplication::translate("DatacoreRowTexts", "Configuration until power off");
    case DatacoreTree::Command:
        return QCoreApplication::translate("DatacoreRowTexts", "Commands");
    case DatacoreTree::PersistentConfiguration:
        return QCoreApplication::translate("DatacoreRowTexts", "Configuration beside presets");
    }
    return {};
}

QString joined(const QStringList& items, int limit)
{
    QString text;
    for (const QString& item : items) {
        if (!text.isEmpty())
            text += QLatin1String(", ");
        text += QStringView(item).left(limit).toString().simplified();
        if (text.size() > limit)
            return text.left(limit) + QChar(0x2026);
    }
    return text;
}

QString forEditing(const QStringList& items)
{
    if (items.size() < 2)
        return items.value(0);
    const QJsonDocument list(QJsonArray::fromStringList(items));
    return QString::fromUtf8(list.toJson(QJsonDocument::Compact));
}

std::optional<QStringList> fromEditing(const QString& text, bool isList)
{
    if (!isList)
        return QStringList(text);
    const QJsonArray list = QJsonDocument::fromJson(text.toUtf8()).array();
    const bool areStrings =
        std::all_of(list.begin(), list.end(), [](const QJsonValue& item) { return item.isString(); });
    if (list.isEmpty() || !areStrings)
        return std::nullopt;
    return QVariant(list.toVariantList()).toStringList();
}

} // namespace DatacoreRowTexts
