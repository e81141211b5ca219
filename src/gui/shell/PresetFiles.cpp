#include "gui/shell/PresetFiles.h"

#include "presets/PresetFile.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>

namespace PresetFiles {
namespace {

constexpr QLatin1String kSuffix(".wzpreset", 9);
/// Of characters, for file systems that take no more than 255 bytes.
constexpr int kLongestBaseName = 60;

/// Also on the file systems of sticks.
QString baseName(const QString& presetName)
{
    QString base = presetName.left(kLongestBaseName);
    for (QChar& character : base) {
        if (!character.isPrint() || QStringLiteral("/\\:*?\"<>|").contains(character))
            character = QLatin1Char('_');
    }
    return base.startsWith(QLatin1Char('.')) ? QLatin1Char('_') + base : base;
}

QStringList folders()
{
    QStringList folders{documents()};
    const auto volumes = QStorageInfo::mountedVolumes();
    for (const QStorageInfo& volume : volumes) {
        const QString root = volume.rootPath();
        if (root.startsWith(QLatin1String("/media/")) || root.startsWith(QLatin1String("/run/media/"))
            || root.startsWith(QLatin1String("/mnt/")))
            folders << root;
    }
    return folders;
}

} // namespace

QString documents()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString save(const QString& name, const WzClientPreset& preset)
{
    const QString base = documents() + QLatin1Char('/') + baseName(name);
    QString path = base + kSuffix;
    for (int number = 2; QFile::exists(path); ++number)
        path = QStringLiteral("%1 (%2)").arg(base, QString::number(number)) + kSuffix;
    return PresetFile::save(path, preset) ? path : QString();
}

QList<QFileInfo> found()
{
    QList<QFileInfo> files;
    for (const QString& folder : folders())
        files << QDir(folder).entryInfoList({QLatin1Char('*') + kSuffix}, QDir::Files | QDir::Readable);
    std::sort(files.begin(), files.end(),
              [](const QFileInfo& a, const QFileInfo& b) { return a.lastModified() > b.lastModified(); });
    return files;
}

QString nameOf(const WzClientPreset& preset, const QString& path)
{
    const QString name = preset.getPresetName().trimmed();
    return name.isEmpty() ? QFileInfo(path).completeBaseName() : name;
}

} // namespace PresetFiles
