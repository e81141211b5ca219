#pragma once

#include <QString>

/// What the program has written itself and cannot read any more.
namespace DamagedFile {

/// Renames the file, so that it is kept and no longer in the way, with a log line that says where. A file
/// that cannot even be opened stays where it is.
void setAside(const QString& path, const QString& reason);

} // namespace DamagedFile
