#pragma once

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"
#include "datacore/TreePath.h"
#include "datacore/WzClientDatacoreManager.h"
#include "network/NetworkConnection.h"
#include "network/SerialisableDataPacketDistributor.h"
#include "network/events/SequencePackagedLogPacket.h"
#include "network/events/WzClientSequencePackagedLogPacketHandler.h"
#include "server/core/InstrumentServer.h"

namespace Velmora::Server {

inline QString fullPath(ServerCommon::DatacoreTree tree, QLatin1String path)
{
    return ServerCommon::treePath(tree, path);
}

inline QString config(QLatin1String path)
{
    return fullPath(ServerCommon::DatacoreTree::Configuration, path);
}

inline QString status(QLatin1String path)
{
    return fullPath(ServerCommon::DatacoreTree::Status, path);
}

/// A client with its mirror. There can be one in a process, since received packets go to all that listen in
/// it.
struct MirrorClient {
    explicit MirrorClient(const InstrumentServer& server)
    {
        using Handler = WzClientSequencePackagedLogPacketHandler;
        distributor.registerPacketAcceptor(&logHandler, SequencePackagedLogPacket::kClassName);
        QObject::connect(&logHandler, &Handler::newLogEvent, &logHandler,
                         [this](EventKind, const QDateTime&, const QString& text) { events << text; });
        QObject::connect(&logHandler, &Handler::resetEventLog, &logHandler, [this] { events.clear(); });
        connection.connectToHost(QHostAddress(QHostAddress::LocalHost), server.port());
    }
    ClientDatacore* node(const QString& path)
    {
        return datacores.getClientDatacoreRegistry().lookupDatacoreFromPath(path);
    }
    bool hasValue(const QString& path) { return node(path) && node(path)->hasValueOfServer(); }

    SerialisableDataPacketDistributor distributor;
    WzClientSequencePackagedLogPacketHandler logHandler;
    QStringList events; ///< what its log shows
    NetworkConnection connection{nullptr, false};
    WzClientDatacoreManager datacores{connection, distributor};
};

} // namespace Velmora::Server
