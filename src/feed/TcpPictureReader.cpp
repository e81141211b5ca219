#include "feed/TcpPictureReader.h"

#include "logging/LogThrottle.h"

#include <chrono>
#include <utility>

namespace Velmora::Feed {

namespace {

using namespace std::chrono_literals;

constexpr auto kRetryInterval = 2000ms;
constexpr qint64 kReadBufferBytes = 1024 * 1024;

} // namespace

TcpPictureReader::TcpPictureReader(const QHostAddress& address, quint16 port, std::string image, QSize size,
                                   QObject* parent)
    : QObject(parent)
    , m_address(address)
    , m_port(port)
    , m_image(std::move(image))
    , m_size(size)
    , m_socket(this)
    , m_retry(this)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(kRetryInterval);
    m_socket.setReadBufferSize(kReadBufferBytes);
    connect(&m_retry, &QTimer::timeout, this, &TcpPictureReader::connectToServer);
    connect(&m_socket, &QTcpSocket::connected, this, [this] { ask(true); });
    connect(&m_socket, &QTcpSocket::readyRead, this, &TcpPictureReader::onReadyRead);
    connect(&m_socket, &QTcpSocket::stateChanged, this, [this](QAbstractSocket::SocketState state) {
        if (state == QAbstractSocket::UnconnectedState)
            onLost();
    });
    connectToServer();
}

TcpPictureReader::~TcpPictureReader()
{
    // Its end is no loss to do anything about.
    m_socket.disconnect(this);
}

void TcpPictureReader::connectToServer()
{
    m_parser.clear();
    m_socket.connectToHost(m_address, m_port);
}

void TcpPictureReader::setSize(QSize size)
{
    if (size == m_size)
        return;
    m_size = size;
    if (m_socket.state() == QAbstractSocket::ConnectedState)
        ask(true);
}

void TcpPictureReader::ask(bool again)
{
    m_socket.write(FeedRequest{m_image, m_size, again}.serialise());
}

void TcpPictureReader::onReadyRead()
{
    bool hasNews = false;
    while (m_socket.bytesAvailable() > 0 && m_parser.append(m_socket.readAll())) {
        while (auto reply = m_parser.next()) {
            hasNews = true;
            m_isStale = reply->isStale;
            ask(false);
            if (!reply->pixels.empty()) {
                m_picture = std::move(*reply);
                ++m_arrivals;
            }
        }
    }
    if (m_parser.isDamaged()) {
        static LogThrottle throttle;
        throttle.log(spdlog::level::warn,
                     "Picture feed: the server sends what is no picture; connecting anew");
        m_socket.abort();
    }
    if (hasNews)
        emit arrived();
}

void TcpPictureReader::onLost()
{
    m_isStale = true;
    m_retry.start();
    emit arrived();
}

PictureReader::Result TcpPictureReader::read(const Draw& draw, bool again)
{
    if (m_arrivals == 0)
        return Result::None;
    if (m_drawn == m_arrivals && !again)
        return Result::Unchanged;
    m_drawn = m_arrivals;
    draw(m_picture.view());
    return Result::Drawn;
}

PictureReader::State TcpPictureReader::state()
{
    if (m_arrivals == 0)
        return State::NoPicture;
    return m_isStale ? State::Stale : State::Live;
}

} // namespace Velmora::Feed
