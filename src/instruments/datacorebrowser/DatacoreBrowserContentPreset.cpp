#include "instruments/datacorebrowser/DatacoreBrowserContentPreset.h"

#include <QJsonArray>

namespace {

constexpr QLatin1String kExpandedKey("expandedPaths", 13);
constexpr QLatin1String kSelectedKey("selectedPath", 12);
constexpr QLatin1String kFilterKey("filter", 6);

} // namespace

DatacoreBrowserContentPreset::DatacoreBrowserContentPreset()
    : WzSubWindowContentPreset(QString(kClassName))
{
}

void DatacoreBrowserContentPreset::setExpandedPaths(const QStringList& paths)
{
    setValue(kExpandedKey, QJsonArray::fromStringList(paths.mid(0, kMostExpanded)));
}

bool DatacoreBrowserContentPreset::containsExpandedPaths() const
{
    return containsType(kExpandedKey, QJsonValue::Array);
}

QStringList DatacoreBrowserContentPreset::expandedPaths() const
{
    return value(kExpandedKey).toVariant().toStringList().mid(0, kMostExpanded);
}

void DatacoreBrowserContentPreset::setSelectedPath(const QString& path)
{
    setValue(kSelectedKey, path);
}

QString DatacoreBrowserContentPreset::selectedPath() const
{
    return stringValue(kSelectedKey);
}

void DatacoreBrowserContentPreset::setFilter(const QString& filter)
{
    setValue(kFilterKey, filter);
}

QString DatacoreBrowserContentPreset::filter() const
{
    return stringValue(kFilterKey);
}
