#pragma once

#include "datacore/DatacoreTree.h"

#include <QStringList>

#include <optional>

/// How nodes read in the browser's rows, and how their values are edited.
namespace DatacoreRowTexts {

QString ofTree(ServerCommon::DatacoreTree tree);

/// One line of at most @p limit characters.
QString joined(const QStringList& items, int limit);

/// A value as it is edited: a list as a JSON array of strings.
QString forEditing(const QStringList& items);
/// The value that an edited text stands for; nothing when it stands for no list and is to be one.
std::optional<QStringList> fromEditing(const QString& text, bool isList);

} // namespace DatacoreRowTexts
