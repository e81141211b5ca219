#pragma once

#include "feed/FeedMessages.h"
#include "feed/SharedPictureReader.h"

#include <QObject>

#include <memory>
#include <optional>

class QTcpSocket;

namespace Velmora::Feed {

/// One reader at the other end of a TCP connection.
///
/// At most one reply waits for it, so that a slow one costs neither memory nor the time to compress what it
/// will not get.
class FeedSession : public QObject {
    Q_OBJECT
public:
    /// Takes the socket over. @p port is that of the instrument, which names its segments.
    FeedSession(QTcpSocket* socket, int port, QObject* parent);

    /// Answers the request if there is something new.
    void poll();

signals:
    void finished();

private:
    void onReadyRead();
    void accept(const FeedRequest& request);
    QByteArray nextReply();

    QTcpSocket* m_socket;
    int m_port;
    std::optional<FeedRequest> m_request; ///< the open one, or the last one answered
    std::unique_ptr<SharedPictureReader> m_reader;
    bool m_isWaiting = false;
    std::optional<PictureReader::State> m_toldState;
};

} // namespace Velmora::Feed
