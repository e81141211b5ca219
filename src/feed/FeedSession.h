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

    /// The open request, or the last one answered.
    const std::optional<FeedRequest>& request() const { return m_request; }
    bool isWaiting() const { return m_isWaiting; }
    /// Answers the request if there is something new.
    void poll();

signals:
    void requestChanged();
    void finished();

private:
    void onReadyRead();
    void accept(const FeedRequest& request);
    QByteArray nextReply();

    QTcpSocket* m_socket;
    int m_port;
    std::optional<FeedRequest> m_request;
    std::unique_ptr<SharedPictureReader> m_reader;
    bool m_isWaiting = false;
    std::optional<PictureReader::State> m_toldState;
};

} // namespace Velmora::Feed
