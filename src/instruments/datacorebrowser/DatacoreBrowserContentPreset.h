#pragma once

#include "presets/WzSubWindowContentPreset.h"

#include <QStringList>

/// What a datacore browser keeps: what was expanded, selected and searched.
class DatacoreBrowserContentPreset : public WzSubWindowContentPreset {
public:
    static constexpr QLatin1String kClassName{"DatacoreBrowserContentPreset", 28};
    /// More expanded rows are not kept.
    static constexpr int kMostExpanded = 2000;

    DatacoreBrowserContentPreset();

    void setExpandedPaths(const QStringList& paths);
    bool containsExpandedPaths() const;
    QStringList expandedPaths() const;

    void setSelectedPath(const QString& path);
    QString selectedPath() const;

    void setFilter(const QString& filter);
    QString filter() const;
};
