#pragma once

#include <QFileInfo>
#include <QList>
#include <QString>

class WzClientPreset;

/// Presets as files of the user's, to be carried from one instrument to another.
namespace PresetFiles {

/// The folder that they are written to.
QString documents();
/// Writes it into the user's documents, under a name of its own. Returns its path; empty, and a log line,
/// when it could not be written.
QString save(const QString& name, const WzClientPreset& preset);
/// The files of presets in the user's documents and on the media that have been put in, the newest first.
QList<QFileInfo> found();
/// What the preset in the file is called.
QString nameOf(const WzClientPreset& preset, const QString& path);

} // namespace PresetFiles
