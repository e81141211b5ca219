#include "tools/SettingsFile.h"

#include "datacore/DatacoreTree.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <array>

namespace {

constexpr QLatin1String kFormatKey{"format", 6};
constexpr QLatin1String kFormat{"wz_datacore settings", 20};
constexpr QLatin1String kVersionKey{"version", 7};
constexpr QLatin1String kElementsKey{"elements", 8};
constexpr int kVersion = 1;

QJsonValue toValue(const QStringList& items)
{
    if (items.isEmpty())
        return QJsonValue::Null;
    return items.size() == 1 ? QJsonValue(items.first()) : QJsonValue(QJsonArray::fromStringList(items));
}

std::optional<QStringList> toItems(const QJsonValue& value)
{
    if (value.isNull())
        return QStringList();
    if (value.isString())
        return QStringList(value.toString());
    const QJsonArray array = value.toArray();
    const auto isText = [](const QJsonValue& item) { return item.isString(); };
    if (!value.isArray() || !std::all_of(array.begin(), array.end(), isText))
        return std::nullopt;
    QStringList items;
    for (const QJsonValue item : array)
        items << item.toString();
    return items;
}

} // namespace

bool SettingsFile::isSetting(const QString& path)
{
    using Tree = ServerCommon::DatacoreTree;
    constexpr std::array kTrees{Tree::Configuration, Tree::NonPersistentConfiguration,
                                Tree::PersistentConfiguration};
    return std::any_of(kTrees.begin(), kTrees.end(), [&](Tree tree) {
        const QString root = *ServerCommon::rootName(tree);
        return path == root || path.startsWith(root + QLatin1Char('/'));
    });
}

std::optional<QString> SettingsFile::save(const QString& file, const Settings& settings)
{
    // The new file takes the place of the old one: of a device nothing would be left.
    const QFileInfo present(file);
    if (present.exists() && !present.isFile())
        return QStringLiteral("cannot write %1: it is no regular file").arg(file);
    QSaveFile target(file);
    const QByteArray json = toJson(settings);
    if (target.open(QIODevice::WriteOnly) && target.write(json) == json.size() && target.commit())
        return std::nullopt;
    return QStringLiteral("cannot write %1: %2").arg(file, target.errorString());
}

std::optional<SettingsFile::Settings> SettingsFile::load(const QString& file, QString& problem)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("cannot read %1: %2").arg(file, source.errorString());
        return std::nullopt;
    }
    // Not by its size beforehand, which devices and pipes do not tell.
    const QByteArray json = source.read(kMostBytes + 1);
    if (source.error() != QFileDevice::NoError) {
        problem = QStringLiteral("cannot read %1: %2").arg(file, source.errorString());
        return std::nullopt;
    }
    if (json.size() > kMostBytes) {
        problem = QStringLiteral("%1 is too large for a file of settings").arg(file);
        return std::nullopt;
    }
    auto settings = fromJson(json, problem);
    if (!settings)
        problem = QStringLiteral("%1 is damaged or no file of settings: %2").arg(file, problem);
    return settings;
}

QByteArray SettingsFile::toJson(const Settings& settings)
{
    QJsonObject elements;
    for (const auto& [path, items] : settings)
        elements.insert(path, toValue(items));
    const QJsonObject file{{kFormatKey, kFormat}, {kVersionKey, kVersion}, {kElementsKey, elements}};
    return QJsonDocument(file).toJson();
}

std::optional<SettingsFile::Settings> SettingsFile::fromJson(const QByteArray& json, QString& problem)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        problem = QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset);
        return std::nullopt;
    }
    const QJsonObject file = document.object();
    if (file.value(kFormatKey).toString() != kFormat || !file.value(kElementsKey).isObject()) {
        problem =
            QStringLiteral("it has no \"%1\": \"%2\" with \"%3\"").arg(kFormatKey, kFormat, kElementsKey);
        return std::nullopt;
    }
    if (file.value(kVersionKey) != QJsonValue(kVersion)) {
        problem = QStringLiteral("its version is not %1").arg(kVersion);
        return std::nullopt;
    }
    Settings settings;
    const QJsonObject elements = file.value(kElementsKey).toObject();
    for (auto element = elements.begin(); element != elements.end(); ++element) {
        const auto items = toItems(element.value());
        if (!items) {
            problem = QStringLiteral("the value of %1 is no string and no list of them").arg(element.key());
            return std::nullopt;
        }
        settings.emplace(element.key(), *items);
    }
    return settings;
}
