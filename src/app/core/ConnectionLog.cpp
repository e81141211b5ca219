#include "app/core/ConnectionLog.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"
#include "network/WzClientNetworkManager.h"

namespace ConnectionLog {

void follow(WzClientNetworkManager& manager)
{
    const auto server = [&manager]() -> QString {
        return manager.getHostAddress().toString() + QLatin1Char(':')
            + QString::number(NetworkConnection::kServerTcpPort);
    };
    QObject::connect(&manager, &WzClientNetworkManager::connectedToServer, &manager,
                     [server] { Velmora::log()->info("info: connected to {}", server()); });
    QObject::connect(&manager, &WzClientNetworkManager::connectionToServerLost, &manager,
                     [server] { Velmora::log()->info("info: connection to {} lost", server()); });
    QObject::connect(&manager, &WzClientNetworkManager::reconnectAttemptFailed, &manager,
                     [server] { Velmora::log()->info("info: no answer from {}, trying again", server()); });
}

} // namespace ConnectionLog
