#pragma once

#include "presets/WzClientPreset.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace Velmora::Server {

/// The presets of all clients in a folder: a file for each, written whole or not at all.
///
/// The name of a file is that of its preset, with what file systems do not take written as "%" and two
/// hexadecimal figures. Whatever is damaged is set aside and no longer listed.
class PresetStore {
public:
    /// Of a name, in bytes of its file; leaves room for what is added while a file is written.
    static constexpr int kLongestFileName = 230;
    static constexpr int kMostPresets = 10000;

    /// Makes the folder when it is first written to.
    explicit PresetStore(const QString& folder);

    /// In the order of the alphabet.
    const QStringList& names() const { return m_names; }
    /// When it was saved, in ms since 1970; 0 when there is none.
    qint64 savedAt(const QString& name) const;
    /// Why a preset cannot have the name; empty when it can.
    static QString faultOf(const QString& name);

    /// Nothing when there is none of that name, or a damaged one, which leaves the list.
    std::optional<WzClientPreset> load(const QString& name);
    /// In place of one that has the name. False, and a log line, when it cannot be written.
    bool save(const QString& name, const WzClientPreset& preset);
    /// False, and a log line, when there is none, or one that has the new name.
    bool rename(const QString& name, const QString& newName);
    bool remove(const QString& name);

private:
    QString pathOf(const QString& name) const;

    QString m_folder;
    QStringList m_names;
};

} // namespace Velmora::Server
