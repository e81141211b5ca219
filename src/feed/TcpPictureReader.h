#pragma once

#include "feed/FeedMessages.h"
#include "feed/PictureReader.h"

#include <QHostAddress>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <string>

namespace Velmora::Feed {

/// Reads one picture from the PictureFeedServer of another host. It connects by itself, again after every
/// loss, and asks for the next picture when it has got one.
class TcpPictureReader final : public QObject, public PictureReader {
    Q_OBJECT
public:
    TcpPictureReader(const QHostAddress& address, quint16 port, std::string image, QSize size,
                     QObject* parent = nullptr);
    ~TcpPictureReader() override;

    /// The largest picture that is of use, for the pictures to come.
    void setSize(QSize size);

    Result read(const Draw& draw, bool again = false) override;
    State state() override;

signals:
    /// A newer picture or state is there.
    void arrived();

private:
    void connectToServer();
    void ask(bool again);
    void onReadyRead();
    void onLost();

    QHostAddress m_address;
    quint16 m_port;
    std::string m_image;
    QSize m_size;
    QTcpSocket m_socket;
    QTimer m_retry;
    FeedReplyParser m_parser;
    FeedReply m_picture;
    std::uint64_t m_arrivals = 0;
    std::uint64_t m_drawn = 0;
    bool m_isStale = false;
};

} // namespace Velmora::Feed
