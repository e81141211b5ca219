#include "presets/PresetFile.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace PresetFile {
namespace {

void setAside(const QString& path, const QString& reason)
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    const QString aside = path + QLatin1String(".damaged-") + stamp;
    if (QFile::rename(path, aside))
        Velmora::log()->warn("The preset file {} is damaged ({}); it is kept as {}", path, reason, aside);
    else
        Velmora::log()->warn("The preset file {} is damaged ({})", path, reason);
}

} // namespace

std::optional<WzClientPreset> load(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly)) {
        Velmora::log()->warn("The preset file {} cannot be read: {}", path, file.errorString());
        return {};
    }
    if (file.size() > kMaximumBytes) {
        setAside(path, QStringLiteral("too large"));
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        setAside(path, error.error ? error.errorString() : QStringLiteral("no JSON object"));
        return {};
    }
    bool ok = false;
    auto preset = SerialisableDataPacket::createChildTypePacketFromParentTypePacket<WzClientPreset>(
        SerialisableDataPacket::fromJson(document.object()), ok);
    if (!ok) {
        setAside(path, QStringLiteral("no client preset"));
        return {};
    }
    return preset;
}

bool save(const QString& path, const WzClientPreset& preset)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    const QByteArray json = preset.serialise();
    if (file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit())
        return true;
    Velmora::log()->warn("The preset file {} cannot be written: {}", path, file.errorString());
    return false;
}

} // namespace PresetFile
