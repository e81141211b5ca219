#include "remote/RemoteDesk.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "remote/WzExternalApi.h"

RemoteDesk::RemoteDesk(WzExternalApi& api, ClientDatacoreRegistry& registry, QObject* parent)
    : QObject(parent)
    , m_registry(registry)
{
    connect(&api, &WzExternalApi::executeRequested, this, &RemoteDesk::onExecuteRequested);
    connect(&api, &WzExternalApi::writeRequested, this, &RemoteDesk::onWriteRequested);
    connect(this, &RemoteDesk::answered, &api, &WzExternalApi::onAnswered);
    connect(this, &RemoteDesk::elementUpdated, &api, &WzExternalApi::onElementUpdated);
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenPopulated, this, &RemoteDesk::followElements);
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenCleared, this, &RemoteDesk::forgetElements);
    followElements();
}

void RemoteDesk::setExecutor(CommandExecutor* executor)
{
    m_executor = executor;
}

void RemoteDesk::onExecuteRequested(quint64 request, int command)
{
    if (!m_executor) {
        emit answered(request, false, tr("The screen is not there yet"));
        return;
    }
    m_executor->execute(static_cast<NumberedCommand>(command),
                        [this, request](const CommandOutcome& outcome) {
                            emit answered(request, outcome.isDone, outcome.text);
                        });
}

void RemoteDesk::onWriteRequested(quint64 request, const QString& path, const QStringList& values)
{
    ElementWrite::begin(m_registry, path, values, this, [this, request](const CommandOutcome& outcome) {
        emit answered(request, outcome.isDone, outcome.text);
    });
}

void RemoteDesk::followElements()
{
    for (const QString& path : WzExternalApi::followedElements()) {
        ClientDatacore* const node = m_registry.lookupDatacoreFromPath(path);
        if (!node)
            continue;
        connect(node, &ClientDatacore::datacoreUpdated, this,
                [this, path](const QStringList& values, const QStringList&, bool active) {
                    emit elementUpdated(path, values, active);
                });
    }
}

void RemoteDesk::forgetElements()
{
    for (const QString& path : WzExternalApi::followedElements())
        emit elementUpdated(path, {}, false);
}
