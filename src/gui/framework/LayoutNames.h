#pragma once

#include <QString>
#include <QStringList>

/// How layouts and windows are named.
namespace LayoutNames {

/// "Layout 1": the name of a sole layout.
QString first();

/// The first free "Layout n", where n starts at 1, or at one above the number of layouts.
QString newName(const QStringList& existing, bool startAtOne);

/// The name of a copy of @p name: "Layout 2 - 2", and "Layout 2 - 3" of that or when that is taken.
QString duplicateName(const QString& name, const QStringList& existing);

/// Names as they stand in old presets become those of now; others stay.
void migrateOldWindowTitleToNewWindowTitle(QString& title);
void migrateOldWindowContentClassToNewWindowContentClass(QString& contentClass);

} // namespace LayoutNames
