#include "server/presets/PresetStore.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "presets/PresetFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace Velmora::Server {

namespace {

constexpr char kSuffix[] = ".json";

bool needsEscape(char byte, bool isFirst)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7F || byte == '/' || byte == '%' || (byte == '.' && isFirst);
}

QByteArray fileNameOf(const QString& name)
{
    QByteArray encoded;
    for (const char byte : name.toUtf8()) {
        if (needsEscape(byte, encoded.isEmpty()))
            encoded += '%' + QByteArray(1, byte).toHex().toUpper();
        else
            encoded += byte;
    }
    return encoded + kSuffix;
}

QString nameOfFile(const QString& fileName)
{
    QByteArray encoded = fileName.toUtf8();
    encoded.chop(static_cast<int>(sizeof(kSuffix)) - 1);
    return QString::fromUtf8(QByteArray::fromPercentEncoding(encoded));
}

} // namespace

PresetStore::PresetStore(const QString& folder)
    : m_folder(folder)
{
    const auto files =
        QDir(folder).entryList({QLatin1Char('*') + QLatin1String(kSuffix)}, QDir::Files | QDir::Hidden);
    for (const QString& file : files) {
        const QString name = nameOfFile(file);
        // What somebody else has put there under a name of his own could not be found again.
        if (faultOf(name).isEmpty() && QFile::encodeName(file) == fileNameOf(name))
            m_names << name;
        else
            log()->warn("'{}' in the folder of presets is none", file);
    }
    m_names.sort();
}

QString PresetStore::faultOf(const QString& name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("it is empty");
    if (fileNameOf(name).size() > kLongestFileName)
        return QStringLiteral("it is too long");
    if (QString::fromUtf8(name.toUtf8()) != name)
        return QStringLiteral("it is no text");
    return {};
}

QString PresetStore::pathOf(const QString& name) const
{
    return m_folder + QLatin1Char('/') + QFile::decodeName(fileNameOf(name));
}

qint64 PresetStore::savedAt(const QString& name) const
{
    const QFileInfo file(pathOf(name));
    return file.exists() ? file.lastModified().toMSecsSinceEpoch() : 0;
}

std::optional<WzClientPreset> PresetStore::load(const QString& name)
{
    if (!m_names.contains(name)) {
        log()->warn("There is no preset '{}'", name);
        return std::nullopt;
    }
    auto preset = PresetFile::load(pathOf(name));
    if (!preset && !QFile::exists(pathOf(name)))
        m_names.removeOne(name);
    return preset;
}

bool PresetStore::save(const QString& name, const WzClientPreset& preset)
{
    const bool isNew = !m_names.contains(name);
    if (const QString fault = faultOf(name); !fault.isEmpty()) {
        log()->warn("A preset cannot be called '{}': {}", name, fault);
        return false;
    }
    if (isNew && m_names.size() >= kMostPresets) {
        log()->warn("There are {} presets already, '{}' is not kept", kMostPresets, name);
        return false;
    }
    if (!PresetFile::save(pathOf(name), preset))
        return false;
    if (isNew)
        m_names.insert(std::lower_bound(m_names.begin(), m_names.end(), name), name);
    return true;
}

bool PresetStore::rename(const QString& name, const QString& newName)
{
    if (name == newName && m_names.contains(name))
        return true;
    QString fault = faultOf(newName);
    if (!m_names.contains(name))
        fault = QStringLiteral("there is no such preset");
    else if (m_names.contains(newName))
        fault = QStringLiteral("there is one of that name");
    // The preset holds its name, too, so it is written anew; it is at one of its names at any time.
    std::optional<WzClientPreset> preset = fault.isEmpty() ? load(name) : std::nullopt;
    if (!preset) {
        log()->warn("Preset '{}' cannot be called '{}': {}", name, newName,
                    fault.isEmpty() ? QStringLiteral("it is damaged") : fault);
        return false;
    }
    preset->setPresetName(newName);
    return save(newName, *preset) && remove(name);
}

bool PresetStore::remove(const QString& name)
{
    if (!m_names.contains(name)) {
        log()->warn("There is no preset '{}' to delete", name);
        return false;
    }
    QFile file(pathOf(name));
    if (file.exists() && !file.remove()) {
        log()->warn("Preset '{}' cannot be deleted: {}", name, file.errorString());
        return false;
    }
    m_names.removeOne(name);
    return true;
}

} // namespace Velmora::Server
