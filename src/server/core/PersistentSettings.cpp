#include "server/core/PersistentSettings.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "server/core/DatacoreService.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace Velmora::Server {

namespace {

constexpr int kSaveMs = 500;

bool isKept(const DatacoreBase& node)
{
    static const QString root =
        *ServerCommon::rootName(ServerCommon::DatacoreTree::PersistentConfiguration) + QLatin1Char('/');
    return node.getChildren().empty() && node.getPath().startsWith(root);
}

/// Nothing when there is no file, or when it was set aside.
QJsonObject readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(file.read(PersistentSettings::kLargestFile));
    if (document.isObject())
        return document.object();
    const QString aside = path + QStringLiteral(".damaged-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    file.close();
    log()->warn("{} is damaged: {}", path,
                QFile::rename(path, aside) ? QLatin1String("set aside as ") + aside
                                           : QStringLiteral("it could not be set aside"));
    return {};
}

} // namespace

PersistentSettings::PersistentSettings(const QString& path, InstrumentTrees& trees,
                                       DatacoreService& datacores, QObject* parent)
    : QObject(parent)
    , m_path(path)
    , m_trees(trees)
    , m_datacores(datacores)
{
    connect(&datacores, &DatacoreService::written, this, [this](const DatacoreBase* node) {
        if (isKept(*node) && !m_timer.isActive())
            m_timer.start(kSaveMs, this);
    });
}

PersistentSettings::~PersistentSettings()
{
    if (m_timer.isActive())
        save();
}

void PersistentSettings::timerEvent(QTimerEvent*)
{
    save();
}

void PersistentSettings::load()
{
    const QJsonObject stored = readFile(m_path);
    for (auto each = stored.begin(); each != stored.end(); ++each) {
        DatacoreBase* const node = m_trees.find(each.key());
        QStringList items;
        for (const QJsonValue item : each.value().toArray())
            items << item.toString();
        if (!node || !isKept(*node) || !each.value().isArray() || !m_datacores.set(*node, items))
            log()->warn("{}: what it says of {} cannot be used", m_path, each.key());
    }
}

bool PersistentSettings::save()
{
    m_timer.stop();
    QJsonObject stored;
    for (const auto& node : m_trees.nodes()) {
        if (isKept(*node) && node->isValid())
            stored.insert(node->getPath(), QJsonArray::fromStringList(node->getDataList()));
    }
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile file(m_path);
    if (file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(stored).toJson()) >= 0 && file.commit())
        return true;
    log()->warn("{} cannot be written: {}", m_path, file.errorString());
    return false;
}

} // namespace Velmora::Server
