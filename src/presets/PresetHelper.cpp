#include "presets/PresetHelper.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "presets/DamagedFile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

using Velmora::LogThrottle;

namespace {

constexpr QLatin1String kPresetsKey("presets", 7);
constexpr qint64 kLargestFile = 16 * 1024 * 1024;

/// What the file holds; nothing when it is none of ours.
std::optional<QStringList> namesIn(const QByteArray& text)
{
    const QJsonValue list = QJsonDocument::fromJson(text).object().value(kPresetsKey);
    if (!list.isArray())
        return {};
    QStringList names;
    for (const QJsonValue name : list.toArray()) {
        if (name.isString())
            names << name.toString();
    }
    return names;
}

} // namespace

PresetHelper::PresetHelper(SerialisableDataPacketDistributor& distributor, QObject* parent)
    : QObject(parent)
    , m_distributor(distributor)
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
               + QLatin1String("/wz_displayclient"))
{
    m_distributor.registerPacketAcceptor(this, QString(PresetInventory::kClassName));
}

PresetHelper::~PresetHelper()
{
    m_distributor.deregisterPacketAcceptor(this);
}

bool PresetHelper::canAcceptPacket(const QString& className) const
{
    return className == PresetInventory::kClassName;
}

void PresetHelper::acceptPacket(const SerialisableDataPacket& packet)
{
    bool ok = false;
    const auto inventory =
        SerialisableDataPacket::createChildTypePacketFromParentTypePacket<PresetInventory>(packet, ok);
    if (!ok || !inventory.containsPresetInventory()) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "An inventory of presets without a list came: left out");
        return;
    }
    takeNames(inventory);
    readOrder();
    followChanges();
    arrange();
}

void PresetHelper::takeNames(const PresetInventory& inventory)
{
    m_names.clear();
    m_savedAt.clear();
    for (const auto& item : inventory.getPresetInventoryItems()) {
        if (item.name.isEmpty() || item.name == kLastKnownState || m_savedAt.contains(item.name))
            continue;
        if (m_names.size() == kMostPresets) {
            Velmora::log()->warn("The instrument has more than {} presets: the rest is not listed",
                                 kMostPresets);
            break;
        }
        m_names << item.name;
        m_savedAt.emplace(item.name, item.savedMs);
    }
}

/// What is still there was not renamed or deleted after all.
void PresetHelper::followChanges()
{
    bool hasChanged = false;
    for (const QString& name : std::as_const(m_leaving)) {
        if (m_savedAt.contains(name))
            continue;
        m_order.remove(name);
        hasChanged = true;
    }
    m_leaving.clear();
    if (hasChanged)
        savePresetsOrder();
}

void PresetHelper::arrange()
{
    m_list = m_order.arranged(m_names);
    emit presetsUpdated();
}

qint64 PresetHelper::savedAt(const QString& name) const
{
    const auto found = m_savedAt.find(name);
    return found == m_savedAt.end() ? 0 : found->second;
}

// --- The user's order

void PresetHelper::setOrderFolder(const QString& folder)
{
    m_folder = folder;
    m_orderIsRead = false;
}

QString PresetHelper::presetOrderFilename() const
{
    return m_folder + QLatin1String("/presets-order.json");
}

void PresetHelper::readOrder()
{
    if (std::exchange(m_orderIsRead, true))
        return;
    checkForPreCombinedBootPresetsOrderFiles();
    m_order.setNames({});
    QFile file(presetOrderFilename());
    if (!file.exists())
        return;
    const bool isOpen = file.size() <= kLargestFile && file.open(QIODevice::ReadOnly);
    const auto names = isOpen ? namesIn(file.readAll()) : std::nullopt;
    if (names)
        m_order.setNames(*names);
    else
        DamagedFile::setAside(file.fileName(), QStringLiteral("no order of presets"));
}

void PresetHelper::reorderPresetsUsingPresetsOrderFile()
{
    m_orderIsRead = false;
    readOrder();
    arrange();
}

bool PresetHelper::savePresetsOrder() const
{
    QDir().mkpath(m_folder);
    QSaveFile file(presetOrderFilename());
    const QJsonObject object{{kPresetsKey, QJsonArray::fromStringList(m_order.names())}};
    const QByteArray text = QJsonDocument(object).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    Velmora::log()->warn("The order of the presets cannot be kept in {}: {}", file.fileName(),
                         file.errorString());
    return false;
}

void PresetHelper::setNewPresetOrder(const QStringList& names)
{
    readOrder();
    PresetOrder wanted;
    wanted.setNames(names);
    m_order.rearrange(wanted.arranged(m_names));
    savePresetsOrder();
    arrange();
}

void PresetHelper::checkForPreCombinedBootPresetsOrderFiles()
{
    const QDir folder(m_folder);
    const QStringList old =
        folder.entryList({QStringLiteral("*_Toolset.txt")}, QDir::Files | QDir::Readable, QDir::Name);
    if (old.isEmpty())
        return;
    QStringList names;
    for (const QString& fileName : old) {
        QFile file(folder.filePath(fileName));
        if (file.size() > kLargestFile || !file.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray& line : file.readAll().split('\n')) {
            const QString name = QString::fromUtf8(line).trimmed();
            if (!name.isEmpty())
                names << name;
        }
        file.close();
        file.rename(file.fileName() + QLatin1String(".merged"));
    }
    // An order of today's is the newer one.
    if (QFile::exists(presetOrderFilename()))
        return;
    m_order.setNames(names);
    savePresetsOrder();
    Velmora::log()->info("The order of {} presets is taken from {}", m_order.names().size(),
                         old.join(QLatin1String(", ")));
}

void PresetHelper::setRenamedPreset(const QString& name, const QString& newName)
{
    readOrder();
    if (name == newName)
        return;
    // What is seen is the order from now on, so that the row stays where it is.
    m_order.rearrange(m_list);
    m_order.insertBehind(name, newName);
    m_leaving.insert(name);
    m_leaving.remove(newName);
}

void PresetHelper::setDeletedPreset(const QString& name)
{
    readOrder();
    m_leaving.insert(name);
}
