#include "datacore/DatacoreConnectionBuilderBase.h"

#include "datacore/ClientDatacoreRegistry.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QVector>

#include <algorithm>

using Velmora::LogThrottle;

namespace {

constexpr QLatin1Char kDelimiter('/');

QString joined(const QString& root, const QString& path)
{
    return path.startsWith(kDelimiter) ? QString(root + path) : QString(root + kDelimiter + path);
}

} // namespace

DatacoreConnectionBuilderBase::DatacoreConnectionBuilderBase(ClientDatacoreRegistry& registry,
                                                             QObject* parent)
    : QObject(parent)
    , m_registry(registry)
{
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenPopulated, this,
            &DatacoreConnectionBuilderBase::onRegistryPopulated);
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenCleared, this,
            &DatacoreConnectionBuilderBase::onRegistryCleared);
}

ClientDatacore*
DatacoreConnectionBuilderBase::getDatacoreFromOrphanedPathAndRegisterUsage(const QString& path,
                                                                           ServerCommon::DatacoreTree tree)
{
    const auto rootName = ServerCommon::rootName(tree);
    if (!rootName) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::err, "Invalid server side datatree specified");
        return nullptr;
    }
    const QString root = *rootName;
    ClientDatacore* const datacore = m_registry.lookupDatacoreFromPath(joined(root, path));
    if (!datacore) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn, "Invalid path, constructed from {} and {}", root, path);
        return nullptr;
    }
    m_utilisedDatacores.push_back(datacore);
    return datacore;
}

void DatacoreConnectionBuilderBase::requestUtilisedDatacoresPopulateConnectedGuiItems() const
{
    // A slot may clear the registry, which deletes no node before control is back in the event loop, unless
    // the slot runs one of its own.
    QVector<QPointer<ClientDatacore>> datacores;
    datacores.reserve(static_cast<int>(m_utilisedDatacores.size()));
    for (ClientDatacore* const datacore : m_utilisedDatacores)
        datacores.append(datacore);
    for (const QPointer<ClientDatacore>& datacore : std::as_const(datacores)) {
        if (datacore)
            datacore->populateConnectedGuiElements();
    }
}

void DatacoreConnectionBuilderBase::onRegistryPopulated()
{
    accessClientDatacoresFromRegistryByPath();
    emit connectionToDatacoresGained();
}

void DatacoreConnectionBuilderBase::onRegistryCleared()
{
    m_utilisedDatacores.clear();
    for (DatacoreLink* const link : m_links)
        link->m_datacore.clear();
    m_links.clear();
    emit connectionToDatacoresLost();
}

void DatacoreConnectionBuilderBase::linkTo(DatacoreLink& link, const QString& path,
                                           ServerCommon::DatacoreTree tree)
{
    link.m_datacore = getDatacoreFromOrphanedPathAndRegisterUsage(path, tree);
    if (std::find(m_links.begin(), m_links.end(), &link) == m_links.end())
        m_links.push_back(&link);
}

void DatacoreConnectionBuilderBase::linkTo(DatacoreLink& link, const char* path,
                                           ServerCommon::DatacoreTree tree)
{
    linkTo(link, QString::fromLatin1(path), tree);
}
