#pragma once

#include "commands/CommandExecutor.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

class ClientDatacoreRegistry;
class WzExternalApi;

/// Does on the GUI thread what the external command interface asks for on its own: numbered commands, writes
/// to elements. It hands on the elements that the interface needs to know. The two speak by queued signals
/// only.
class RemoteDesk : public QObject {
    Q_OBJECT
public:
    RemoteDesk(WzExternalApi& api, ClientDatacoreRegistry& registry, QObject* parent = nullptr);

    /// Before that, and after its end, numbered commands are refused.
    void setExecutor(CommandExecutor* executor);

signals:
    void answered(quint64 request, bool isDone, QString text);
    void elementUpdated(QString path, QStringList values, bool active);

private:
    void onExecuteRequested(quint64 request, int command);
    void onWriteRequested(quint64 request, const QString& path, const QStringList& values);
    void followElements();
    void forgetElements();

    ClientDatacoreRegistry& m_registry;
    QPointer<CommandExecutor> m_executor;
};
