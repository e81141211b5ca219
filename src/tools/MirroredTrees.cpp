#include "tools/MirroredTrees.h"

#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "app/core/WzClientCoreApplicationBase.h"
#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "network/WzClientNetworkManager.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonObject>
#include <QTimer>

#include <algorithm>

MirroredTrees::MirroredTrees(const ToolContext& context)
    : m_context(context)
    , m_network(context.application.getNetworkManager())
    , m_registry(context.application.getDatacoreManager().getClientDatacoreRegistry())
    , m_manipulator(m_registry)
{
}

bool MirroredTrees::waitForTrees()
{
    connectToServer();
    if (m_registry.isEmpty()) {
        QEventLoop loop;
        QObject::connect(&m_registry, &ClientDatacoreRegistry::registryHasBeenPopulated, &loop,
                         &QEventLoop::quit);
        QTimer::singleShot(m_context.timeoutOrDefault(), &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!m_registry.isEmpty())
        return true;
    ToolOutput::say(QStringLiteral("no trees from %1:%2 within %3 s")
                        .arg(m_context.host.toString())
                        .arg(NetworkConnection::kServerTcpPort)
                        .arg(static_cast<double>(m_context.timeoutOrDefault().count()) / 1000.0));
    return false;
}

bool MirroredTrees::waitForValue(const QString& path)
{
    if (!waitForTrees())
        return false;
    if (!node(path)) {
        ToolOutput::say(QStringLiteral("there is no element '%1'").arg(path));
        return false;
    }
    return waitForElement(path);
}

bool MirroredTrees::waitForValues(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (!waitForValue(path))
            return false;
    }
    const auto isThere = [this](const QString& path) { return node(path) && node(path)->hasValueOfServer(); };
    if (std::all_of(paths.begin(), paths.end(), isThere))
        return true;
    ToolOutput::say(QStringLiteral("the connection was lost while the values came"));
    return false;
}

bool MirroredTrees::waitForElement(const QString& path)
{
    connectToServer();
    if (m_manipulator.waitForDatacore(path, m_context.timeoutOrDefault()))
        return true;
    ToolOutput::say(QStringLiteral("there is no value for '%1'").arg(path));
    return false;
}

QStringList MirroredTrees::paths() const
{
    QStringList paths = m_registry.getPaths();
    // By names, not by letters: "a-b" does not stand between "a" and "a/b".
    const auto byNames = [](const QString& a, const QString& b) {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](QChar x, QChar y) {
            const auto rank = [](QChar character) {
                return character == QLatin1Char('/') ? 0 : character.unicode() + 1;
            };
            return rank(x) < rank(y);
        });
    };
    std::sort(paths.begin(), paths.end(), byNames);
    return paths;
}

const ClientDatacore* MirroredTrees::node(const QString& path) const
{
    return m_registry.lookupDatacoreFromPath(path);
}

MirroredTrees::WriteResult MirroredTrees::write(const QString& path, const QStringList& values)
{
    if (!m_manipulator.setDatacoreValue(path, values)
        || !m_manipulator.waitForEcho(m_context.timeoutOrDefault()))
        return {Outcome::Unanswered,
                QStringLiteral("the instrument did not answer the write to %1").arg(path)};
    const ClientDatacore* const written = node(path);
    if (!written || written->getDataList() != values) {
        const QString standing = written ? written->getDataList().join(QLatin1Char(' ')) : QString();
        return {Outcome::Refused, QStringLiteral("%1 refused, it stays '%2'").arg(path, standing)};
    }
    if (written->isValid())
        return {Outcome::Taken, {}};
    QStringList reasons;
    for (const auto& reason : written->getReasonsForBeingInvalid())
        reasons << reason.getText();
    return {Outcome::Invalid,
            QStringLiteral("%1 is invalid: %2").arg(path, reasons.join(QStringLiteral("; ")))};
}

QJsonObject MirroredTrees::toJson(const ClientDatacore& node)
{
    return {{QStringLiteral("path"), node.getDatacorePathOnServer()},
            {QStringLiteral("class"), node.getClassName()},
            {QStringLiteral("values"), QJsonArray::fromStringList(node.getDataList())},
            {QStringLiteral("valid"), node.isValid()},
            {QStringLiteral("reasons"), QJsonArray::fromStringList(node.getReasonTexts())},
            {QStringLiteral("active"), node.isActive()}};
}

QString MirroredTrees::marksOf(const ClientDatacore& node)
{
    QString marks;
    if (!node.isValid())
        marks += QStringLiteral(" [%1]").arg(node.getReasonTexts().join(QStringLiteral("; ")));
    if (!node.isActive())
        marks += QStringLiteral(" [inactive]");
    return marks;
}

void MirroredTrees::connectToServer()
{
    if (m_network.getConnectionToServer().isConnectedToHost())
        return;
    m_network.configureConnectionToServer(m_context.host, true);
    // At once, rather than when the retry timer comes round.
    m_network.onRetryTimerTimeout();
}
