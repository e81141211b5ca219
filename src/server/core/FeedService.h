#pragma once

#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QThread>

namespace Velmora::Feed {
class PictureFeedServer;
}

namespace Velmora::Server {

/// Serves the instrument's pictures to other hosts, from a thread of its own.
class FeedService : public QObject {
    Q_OBJECT
public:
    ~FeedService() override;

    /// False, with the reason in @p error, when the port cannot be had. Port 0 takes a free one.
    bool listen(int instrumentPort, const QHostAddress& address, quint16 port, QString& error);
    quint16 port() const { return m_port; }

private:
    QThread m_thread;
    quint16 m_port = 0;
};

} // namespace Velmora::Server
