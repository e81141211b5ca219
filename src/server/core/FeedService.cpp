#include "server/core/FeedService.h"

#include "feed/PictureFeedServer.h"

namespace Velmora::Server {

FeedService::~FeedService()
{
    m_thread.quit();
    m_thread.wait();
}

bool FeedService::listen(int instrumentPort, const QHostAddress& address, quint16 port, QString& error)
{
    auto* const server = new Feed::PictureFeedServer(instrumentPort);
    server->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, server, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("picture feed"));
    m_thread.start();
    bool ok = false;
    QMetaObject::invokeMethod(
        server,
        [&] {
            ok = server->listen(address, port);
            m_port = server->port();
            error = server->errorString();
        },
        Qt::BlockingQueuedConnection);
    return ok;
}

} // namespace Velmora::Server
