#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

/// The file that the commands export and import share: the values of an instrument's settings by their paths,
/// as JSON. A value has the form of a node's data: null, a string, or an array of strings.
class SettingsFile {
public:
    using Settings = std::map<QString, QStringList>;
    /// Some hundred times what an instrument has.
    static constexpr qint64 kMostBytes = 16 * 1024 * 1024;

    /// Whether the path lies in one of the trees that hold settings: configuration, non-persistent and
    /// persistent configuration.
    static bool isSetting(const QString& path);

    /// Writes the file whole or leaves it as it was. Returns what went wrong, nothing when it is done.
    static std::optional<QString> save(const QString& file, const Settings& settings);
    /// Nothing, and what is wrong, when the file cannot be read or is none of ours in every part.
    static std::optional<Settings> load(const QString& file, QString& problem);

    static QByteArray toJson(const Settings& settings);
    static std::optional<Settings> fromJson(const QByteArray& json, QString& problem);
};
