#include "presets/PresetFile.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "presets/DamagedFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace PresetFile {

std::optional<WzClientPreset> read(const QString& path, QString& reason)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        reason = file.errorString();
        return {};
    }
    if (file.size() > kMaximumBytes) {
        reason = QStringLiteral("too large");
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        reason = error.error ? error.errorString() : QStringLiteral("no JSON object");
        return {};
    }
    bool ok = false;
    auto preset = SerialisableDataPacket::createChildTypePacketFromParentTypePacket<WzClientPreset>(
        SerialisableDataPacket::fromJson(document.object()), ok);
    if (ok)
        return preset;
    reason = QStringLiteral("no client preset");
    return {};
}

std::optional<WzClientPreset> load(const QString& path)
{
    if (!QFile::exists(path))
        return {};
    QString reason;
    auto preset = read(path, reason);
    if (!preset)
        DamagedFile::setAside(path, reason);
    return preset;
}

bool save(const QString& path, const WzClientPreset& preset)
{
    const QByteArray json = preset.serialise();
    if (json.size() > kMaximumBytes) {
        Velmora::log()->warn("A preset of {} bytes is too large for {}", json.size(), path);
        return false;
    }
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit())
        return true;
    Velmora::log()->warn("The preset file {} cannot be written: {}", path, file.errorString());
    return false;
}

} // namespace PresetFile
