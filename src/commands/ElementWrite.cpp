#include "commands/ElementWrite.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"

#include <utility>

namespace {

QString textsOf(const std::list<DatacoreActiveStatusMessage>& reasons)
{
    QStringList texts;
    for (const DatacoreActiveStatusMessage& reason : reasons)
        texts << reason.getText();
    return texts.join(QLatin1String(", "));
}

QString faultOf(const ClientDatacoreRegistry& registry, const ClientDatacore* node, const QString& path)
{
    if (!node && registry.isEmpty())
        return ElementWrite::tr("Not connected to the instrument");
    if (!node)
        return ElementWrite::tr("This instrument has no \"%1\"").arg(path);
    std::list<DatacoreActiveStatusMessage> reasons;
    return node->isActive(reasons) ? QString()
                                   : ElementWrite::tr("It cannot be set now: %1").arg(textsOf(reasons));
}

} // namespace

void ElementWrite::begin(ClientDatacoreRegistry& registry, const QString& path, const QStringList& values,
                         QObject* owner, Done done)
{
    ClientDatacore* const node = registry.lookupDatacoreFromPath(path);
    if (const QString fault = faultOf(registry, node, path); !fault.isEmpty()) {
        done(CommandOutcome::refused(fault));
        return;
    }
    auto* const write = new ElementWrite(*node, values, owner, std::move(done));
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenCleared, write, [write] {
        write->finish(CommandOutcome::refused(tr("The connection to the instrument was lost")));
    });
    node->setDataStringList(values);
}

ElementWrite::ElementWrite(ClientDatacore& node, const QStringList& values, QObject* owner, Done done)
    : QObject(owner)
    , m_node(&node)
    , m_values(values)
    , m_done(std::move(done))
{
    // The node says so before it takes the echo's value and state in.
    connect(&node, &ClientDatacore::datacoreInSyncWithServer, this, &ElementWrite::check,
            Qt::QueuedConnection);
    m_timer.start(kTimeLimitMs, this);
}

void ElementWrite::check()
{
    if (!m_node || !m_node->isInSyncWithServer())
        return;
    bool hasError = false;
    const QStringList reasons = m_node->getReasonTexts();
    ClientDatacore::makeToolTip(reasons, &hasError, nullptr);
    if (hasError)
        finish(
            CommandOutcome::refused(tr("The instrument refuses it: %1").arg(reasons.join(QLatin1Char(' ')))));
    else if (m_node->getDataList() != m_values)
        finish(CommandOutcome::refused(tr("The instrument does not take it")));
    else
        finish({});
}

void ElementWrite::timerEvent(QTimerEvent*)
{
    finish(CommandOutcome::refused(tr("The instrument has not answered for %1 s").arg(kTimeLimitMs / 1000)));
}

void ElementWrite::finish(const CommandOutcome& outcome)
{
    m_timer.stop();
    // Once: whoever is told may end the connection.
    if (const Done done = std::exchange(m_done, {})) {
        deleteLater();
        done(outcome);
    }
}
