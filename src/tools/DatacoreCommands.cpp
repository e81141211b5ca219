#include "tools/DatacoreCommands.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "network/WzClientNetworkManager.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTime>
#include <QTimer>

#include <cstdio>

namespace {

bool print(const QString& line)
{
    std::printf("%s\n", line.toUtf8().constData());
    return std::fflush(stdout) == 0;
}

QString toJson(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

DatacoreCommands::DatacoreCommands(WzClientNetworkManager& network, ClientDatacoreRegistry& registry,
                                   const Options& options)
    : m_network(network)
    , m_registry(registry)
    , m_options(options)
    , m_manipulator(registry)
{
}

int DatacoreCommands::list(const QString& prefix)
{
    if (!waitForTrees())
        return 1;
    bool found = false;
    const QStringList paths = m_registry.getPaths();
    for (const QString& path : paths) {
        if (!path.startsWith(prefix))
            continue;
        found = true;
        if (!print(path))
            return 1;
    }
    if (!found)
        complain(QStringLiteral("no path begins with '%1'").arg(prefix));
    return found ? 0 : 1;
}

int DatacoreCommands::get(const QString& path)
{
    if (!waitForNode(path))
        return 1;
    bool ok = false;
    const QStringList values = m_manipulator.getDatacoreValue(path, ok);
    if (m_options.json) {
        return print(toJson({{QStringLiteral("path"), path},
                             {QStringLiteral("values"), QJsonArray::fromStringList(values)}}))
            ? 0
            : 1;
    }
    for (const QString& value : values) {
        if (!print(value))
            return 1;
    }
    return 0;
}

int DatacoreCommands::set(const QString& path, const QStringList& values)
{
    if (!waitForNode(path))
        return 1;
    if (!m_manipulator.setDatacoreValue(path, values) || !m_manipulator.waitForEcho(m_options.timeout)) {
        complain(QStringLiteral("the instrument did not answer the write to %1").arg(path));
        return 1;
    }
    const ClientDatacore* const node = m_registry.lookupDatacoreFromPath(path);
    if (!node || node->getDataList() != values) {
        complain(QStringLiteral("%1 refused, it stays '%2'")
                     .arg(path, node ? node->getDataList().join(QLatin1Char(' ')) : QString()));
        return 1;
    }
    for (const auto& reason : node->getReasonsForBeingInvalid())
        complain(QStringLiteral("%1 is invalid: %2").arg(path, reason.getText()));
    return node->isValid() ? 0 : 1;
}

int DatacoreCommands::watch(const QStringList& paths)
{
    connect(&m_registry, &ClientDatacoreRegistry::registryHasBeenPopulated, this,
            [this, paths] { follow(paths); });
    connect(&m_network, &WzClientNetworkManager::connectionToServerLost, this,
            [this] { complain(QStringLiteral("connection lost, retrying")); });
    if (!waitForTrees())
        return 1;
    for (const QString& path : paths) {
        if (!waitForNode(path))
            return 1;
    }
    return QCoreApplication::exec();
}

int DatacoreCommands::wait(const QString& path)
{
    return waitForNode(path) ? 0 : 1;
}

bool DatacoreCommands::connectToServer()
{
    if (m_network.getConnectionToServer().isConnectedToHost())
        return true;
    m_network.configureConnectionToServer(m_options.host, true);
    // At once, rather than when the retry timer comes round.
    m_network.onRetryTimerTimeout();
    return m_network.getConnectionToServer().isConnectedToHost();
}

bool DatacoreCommands::waitForTrees()
{
    connectToServer();
    if (m_registry.isEmpty()) {
        QEventLoop loop;
        connect(&m_registry, &ClientDatacoreRegistry::registryHasBeenPopulated, &loop, &QEventLoop::quit);
        QTimer::singleShot(m_options.timeout, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!m_registry.isEmpty())
        return true;
    complain(QStringLiteral("no trees from %1:%2 within %3 s")
                 .arg(m_options.host.toString())
                 .arg(NetworkConnection::kServerTcpPort)
                 .arg(static_cast<double>(m_options.timeout.count()) / 1000.0));
    return false;
}

bool DatacoreCommands::waitForNode(const QString& path)
{
    connectToServer();
    if (m_manipulator.waitForDatacore(path, m_options.timeout))
        return true;
    complain(QStringLiteral("there is no value for '%1'").arg(path));
    return false;
}

/// The nodes are other ones after each connection.
void DatacoreCommands::follow(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (ClientDatacore* const node = m_registry.lookupDatacoreFromPath(path)) {
            connect(node, &ClientDatacore::datacoreUpdated, this,
                    [this, path](const QStringList& values, const QStringList& reasons, bool active) {
                        printChange(path, values, reasons, active);
                    });
        }
    }
}

void DatacoreCommands::printChange(const QString& path, const QStringList& values, const QStringList& reasons,
                                   bool active)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    QString line;
    if (m_options.json) {
        line = toJson({{QStringLiteral("time"), time},
                       {QStringLiteral("path"), path},
                       {QStringLiteral("values"), QJsonArray::fromStringList(values)},
                       {QStringLiteral("reasons"), QJsonArray::fromStringList(reasons)},
                       {QStringLiteral("active"), active}});
    } else {
        line = QStringLiteral("%1 %2 %3").arg(time, path, values.join(QLatin1Char(' ')));
        if (!reasons.isEmpty())
            line += QStringLiteral(" [%1]").arg(reasons.join(QStringLiteral("; ")));
        if (!active)
            line += QStringLiteral(" [inactive]");
    }
    if (!print(line))
        QCoreApplication::exit(1);
    else if (++m_changes == m_options.count)
        QCoreApplication::exit(0);
}

void DatacoreCommands::complain(const QString& problem) const
{
    std::fprintf(stderr, "wz_datacore: %s\n", qPrintable(problem));
}
