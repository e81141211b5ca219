#pragma once

#include "presets/WzClientPreset.h"

#include <QString>

#include <optional>

/// A client preset in a file, as the JSON that also travels.
namespace PresetFile {

/// Above this a file is neither read nor written: a preset of sixteen full layouts takes a hundredth of it.
inline constexpr qint64 kMaximumBytes = 16 * 1024 * 1024;

/// Nothing, and the @p reason, when the file holds no preset. It is left as it is.
std::optional<WzClientPreset> read(const QString& path, QString& reason);

/// Nothing when there is no such file, or none that can be read. A damaged one is set aside, with a log line
/// that says where.
std::optional<WzClientPreset> load(const QString& path);

/// Writes it whole or not at all. False, and a log line, when it could not.
bool save(const QString& path, const WzClientPreset& preset);

} // namespace PresetFile
