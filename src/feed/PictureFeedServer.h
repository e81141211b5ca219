#pragma once

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>
#include <QTimer>

#include <vector>

namespace Velmora::Feed {

class FeedSession;

/// Serves the pictures of this host's shared memory to readers on others.
///
/// It reads the segments as any reader does, so writers do not know of it; and it looks at them only while a
/// reader waits. Compressing takes some milliseconds, for which it wants a thread of its own in a busy
/// program.
class PictureFeedServer : public QObject {
    Q_OBJECT
public:
    /// @p instrumentPort names the segments; see SegmentNames.
    explicit PictureFeedServer(int instrumentPort, QObject* parent = nullptr);
    ~PictureFeedServer() override;

    /// @p port 0 chooses a free one. False when it cannot be had, which errorString() explains.
    bool listen(const QHostAddress& address, quint16 port);
    quint16 port() const { return m_server.serverPort(); }
    QString errorString() const { return m_server.errorString(); }

private:
    void onNewConnection();
    void drop(FeedSession* session);
    void poll();

    int m_instrumentPort;
    QTcpServer m_server;
    QTimer m_timer;
    std::vector<FeedSession*> m_sessions;
};

} // namespace Velmora::Feed
